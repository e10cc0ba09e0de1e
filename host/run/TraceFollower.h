#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

#include "host/run/FileDescriptor.h"
#include "platform/foundation/JSON.h"

namespace quobrak::host {

/// Reads a trace as it grows: a file with one JSON object on each line.
class TraceFollower {
 public:
  /// The file need not be there yet.
  explicit TraceFollower(std::filesystem::path file) : file_(std::move(file)) {}

  /// What has come since the last time, in whole lines. Lines that are no JSON are passed over. Nothing where the file
  /// cannot be read.
  std::vector<JSONValue> read();

  /// How many lines were passed over.
  std::size_t unreadableLines() const { return unreadableLines_; }

 private:
  std::filesystem::path file_;
  FileDescriptor descriptor_;
  /// A line that has come in part.
  std::string rest_;
  std::size_t unreadableLines_ = 0;
};

}  // namespace quobrak::host
