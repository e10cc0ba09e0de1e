#pragma once

#include <map>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>

#include "drivers/simulator/PhoneFiles.h"

namespace quobrak::conformance {

/// A phone is to begin with a named value that it does not know: names the value, and those that there are.
class UnknownValueError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// The files of a phone, whose named values begin with other texts.
class PhoneWithValues final : public simulator::PhoneFiles {
 public:
  /// `files` must outlive these. Each of the values must be one that the phone's own description begins with.
  PhoneWithValues(const simulator::PhoneFiles& files, std::map<std::string, std::string> values)
      : files_(files), values_(std::move(values)) {}

  /// Throws `UnknownValueError` with the description of the phone.
  std::optional<std::string> read(const std::string& path) const override;
  std::string nameOf(const std::string& path) const override { return files_.nameOf(path); }

 private:
  std::string described(const std::string& description) const;

  const simulator::PhoneFiles& files_;
  std::map<std::string, std::string> values_;
};

}  // namespace quobrak::conformance
