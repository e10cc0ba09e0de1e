#import "drivers/xctest/declarations/FoundationAdditions.h"

#include <cstdlib>
#include <string>

#include "tests/drivers/xctest/standins/Folding.h"

@implementation NSString (FoundationAdditions)

- (NSString*)stringByFoldingWithOptions:(NSStringCompareOptions)options locale:(NSLocale*)locale {
  std::u16string units([self length], u'\0');
  [self getCharacters:reinterpret_cast<unichar*>(units.data())];
  const std::u16string folded = quobrak::testing::folded(units);
  return [NSString stringWithCharacters:reinterpret_cast<const unichar*>(folded.data()) length:folded.size()];
}

@end

/// A test has a home folder where a phone has the container of the test process.
@implementation NSFileManager (FoundationAdditions)

- (NSArray*)URLsForDirectory:(NSSearchPathDirectory)directory inDomains:(NSSearchPathDomainMask)domains {
  const char* const home = std::getenv("HOME");
  if (directory != NSDocumentDirectory || domains != NSUserDomainMask || home == nullptr) {
    return @[];
  }
  NSString* const folder = [NSString stringWithUTF8String:home];
  return @[ [NSURL fileURLWithPath:[folder stringByAppendingPathComponent:@"Documents"]] ];
}

@end
