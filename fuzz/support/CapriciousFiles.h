#pragma once

#include <string>

#include "fuzz/support/Answers.h"
#include "fuzz/support/Require.h"
#include "platform/foundation/FileManager.h"
#include "platform/foundation/Unicode.h"

namespace quobrak::fuzz {

/// A disk that keeps nothing. Where an answer is `Answers::FAILURE`, what is tried with a file fails.
class CapriciousFiles final : public FileManager {
 public:
  /// `answers` must outlive it.
  explicit CapriciousFiles(Answers& answers) : answers_(answers) {}

  std::string documentDirectory() const override { return "/Documents"; }
  bool fileExists(const std::string&) const override { return false; }
  void removeItem(const std::string& path) override { tryWith(path); }
  void createDirectory(const std::string& path) override { tryWith(path); }
  std::string readText(const std::string& path) const override {
    tryWith(path);
    return "";
  }
  void write(DataView, const std::string& path) override { tryWith(path); }

 private:
  void tryWith(const std::string& path) const {
    require(path.starts_with("/Documents/") && isUTF8(path), "a path is a text that begins at the Documents directory");
    if (answers_.next() == Answers::FAILURE) {
      throw FileManagerError("the disk is full");
    }
  }

  Answers& answers_;
};

}  // namespace quobrak::fuzz
