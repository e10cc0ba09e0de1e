#pragma once

#include <stdexcept>

#include "drivers/simulator/PhoneDescription.h"
#include "drivers/simulator/PhoneFiles.h"

namespace quobrak::simulator {

/// A phone's folder that cannot be used: says of each fault which file and where in it, what is wrong and what would be
/// right, one in a line.
class PhoneDescriptionError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Reads and checks the description of a phone: phone.json, and for each application a folder with its app.json and its
/// screens. Throws `PhoneDescriptionError` with all faults.
PhoneDescription loadPhone(const PhoneFiles& files);

}  // namespace quobrak::simulator
