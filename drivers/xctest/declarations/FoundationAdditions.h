#pragma once

#import <Foundation/Foundation.h>

// What the platform's Foundation has beyond the one that stands in for it off the phone.

@interface NSString (FoundationAdditions)
- (NSString*)stringByFoldingWithOptions:(NSStringCompareOptions)options locale:(NSLocale*)locale;
@end

@interface NSFileManager (FoundationAdditions)
- (NSArray*)URLsForDirectory:(NSSearchPathDirectory)directory inDomains:(NSSearchPathDomainMask)domains;
@end
