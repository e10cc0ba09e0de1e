#import <Foundation/Foundation.h>

#include "benchmarks/search/Peers.h"

/// An element as a predicate sees it, through its properties.
@interface SearchedElement : NSObject {
  NSString* label;
  NSString* identifier;
  NSString* placeholderValue;
  BOOL enabled;
}
@property(nonatomic, copy) NSString* label;
@property(nonatomic, copy) NSString* identifier;
@property(nonatomic, copy) NSString* placeholderValue;
@property(nonatomic) BOOL enabled;
@end

@implementation SearchedElement
@synthesize label;
@synthesize identifier;
@synthesize placeholderValue;
@synthesize enabled;

- (void)dealloc {
  [label release];
  [identifier release];
  [placeholderValue release];
  [super dealloc];
}
@end

namespace quobrak::benchmarks {

namespace {

NSString* platformText(const std::string& text) {
  return [NSString stringWithUTF8String:text.c_str()];
}

class GNUstep final : public Peer {
 public:
  explicit GNUstep(const std::vector<ElementTexts>& elements) : elements_([[NSMutableArray alloc] init]) {
    @autoreleasepool {
      for (const ElementTexts& texts : elements) {
        SearchedElement* const element = [[[SearchedElement alloc] init] autorelease];
        element.label = platformText(texts.label);
        element.identifier = platformText(texts.identifier);
        element.placeholderValue = texts.placeholder ? platformText(*texts.placeholder) : nil;
        element.enabled = texts.isEnabled;
        [elements_ addObject:element];
      }
    }
  }
  ~GNUstep() override { [elements_ release]; }
  GNUstep(const GNUstep&) = delete;
  GNUstep& operator=(const GNUstep&) = delete;

  std::size_t count(const std::string& text) override {
    @autoreleasepool {
      NSString* const needle = platformText(text);
      NSPredicate* const predicate = [NSPredicate
          predicateWithFormat:@"(label CONTAINS[c] %@ AND enabled == YES) OR (identifier CONTAINS[c] %@ AND "
                              @"enabled == YES) OR (placeholderValue CONTAINS[c] %@ AND enabled == YES)",
                              needle, needle, needle];
      return [[elements_ filteredArrayUsingPredicate:predicate] count];
    }
  }

 private:
  NSMutableArray* elements_;
};

}  // namespace

std::unique_ptr<Peer> searchingWithGNUstep(const std::vector<ElementTexts>& elements) {
  return std::make_unique<GNUstep>(elements);
}

}  // namespace quobrak::benchmarks
