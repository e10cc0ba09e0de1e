#import "drivers/xctest/Texts.h"

#include "drivers/xctest/Ref.h"
#include "platform/foundation/Unicode.h"

namespace quobrak::xctest {

namespace {

Ref<NSString*> decoded(std::string_view text) {
  return Ref<NSString*>::adopting([[NSString alloc] initWithBytes:text.data()
                                                           length:text.size()
                                                         encoding:NSUTF8StringEncoding]);
}

}  // namespace

NSString* platformText(std::string_view text) {
  const Ref<NSString*> wellFormed = decoded(isUTF8(text) ? std::string(text) : repairedUTF8(text));
#if __has_feature(objc_arc)
  return wellFormed.get();
#else
  return [[wellFormed.get() retain] autorelease];
#endif
}

std::string textOf(NSString* text) {
  NSData* const bytes = [text dataUsingEncoding:NSUTF8StringEncoding];
  if ([bytes length] == 0) {
    return {};
  }
  return {static_cast<const char*>([bytes bytes]), [bytes length]};
}

}  // namespace quobrak::xctest
