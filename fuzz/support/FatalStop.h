#pragma once

#include <cstddef>
#include <string>

namespace quobrak::fuzz {

/// A fatal stop, in programs that link FatalStop.cpp: `fatalError` raises it in place of ending the process, and the
/// next input can be tried. It is no `std::exception`, so that nothing in between takes it for a failure that can be
/// survived, just as nothing takes the platform's own exceptions for one on a phone.
struct FatalStop {
  std::string message;
  /// The line of the script that was running, from 1; 0 for none.
  std::size_t lineNumber;
  std::string line;
};

}  // namespace quobrak::fuzz
