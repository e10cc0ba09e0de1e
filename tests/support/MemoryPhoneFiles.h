#pragma once

#include <map>
#include <optional>
#include <string>
#include <utility>

#include "drivers/simulator/PhoneFiles.h"

namespace quobrak::testing {

/// The folder of a simulated phone, in memory: contents by path.
class MemoryPhoneFiles final : public simulator::PhoneFiles {
 public:
  explicit MemoryPhoneFiles(std::map<std::string, std::string> files) : files_(std::move(files)) {}

  std::optional<std::string> read(const std::string& path) const override;
  std::string nameOf(const std::string& path) const override { return path; }

  const std::map<std::string, std::string>& contents() const { return files_; }

  std::string& operator[](const std::string& path) { return files_[path]; }

 private:
  std::map<std::string, std::string> files_;
};

/// A small and quick phone: 100 x 200 points at scale 1, without delays, with an empty home screen
/// ("com.apple.springboard") and one application, "com.example.test", named "Test", which starts in 500 ms and shows
/// the elements of `page` in one window. `rules` is the JSON array of the application's rules.
MemoryPhoneFiles smallPhone(const std::string& page, const std::string& rules = "[]");

}  // namespace quobrak::testing
