#pragma once

#import <Foundation/Foundation.h>

#include <string>
#include <string_view>

namespace quobrak::xctest {

/// The text as an object of the platform; bytes that are no UTF-8 come as replacement characters.
NSString* platformText(std::string_view text);

/// The text in UTF-8. No text, and half a surrogate pair too, is what the platform makes of it: an empty text.
std::string textOf(NSString* text);

}  // namespace quobrak::xctest
