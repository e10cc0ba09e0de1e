#pragma once

#include <optional>
#include <string>
#include <utility>

namespace quobrak::simulator {

/// Where the files of a phone's folder come from.
class PhoneFiles {
 public:
  virtual ~PhoneFiles() = default;

  /// The content of a file, by its path from the phone's folder; none where it cannot be read.
  virtual std::optional<std::string> read(const std::string& path) const = 0;

  /// The file's name for error texts.
  virtual std::string nameOf(const std::string& path) const = 0;
};

/// The files of the phone that comes with the program.
class BuiltinPhoneFiles final : public PhoneFiles {
 public:
  std::optional<std::string> read(const std::string& path) const override;
  std::string nameOf(const std::string& path) const override;
};

/// The files of a folder on the disk.
class FolderPhoneFiles final : public PhoneFiles {
 public:
  explicit FolderPhoneFiles(std::string folder) : folder_(std::move(folder)) {}
  std::optional<std::string> read(const std::string& path) const override;
  std::string nameOf(const std::string& path) const override;

 private:
  std::string folder_;
};

}  // namespace quobrak::simulator
