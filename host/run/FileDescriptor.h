#pragma once

#include <unistd.h>

#include <utility>

namespace quobrak::host {

/// An open descriptor, closed when it goes. A negative number is none.
class FileDescriptor {
 public:
  FileDescriptor() = default;
  explicit FileDescriptor(int number) : number_(number) {}
  FileDescriptor(FileDescriptor&& other) noexcept : number_(std::exchange(other.number_, NONE)) {}
  FileDescriptor& operator=(FileDescriptor&& other) noexcept {
    std::swap(number_, other.number_);
    return *this;
  }
  FileDescriptor(const FileDescriptor&) = delete;
  FileDescriptor& operator=(const FileDescriptor&) = delete;
  ~FileDescriptor() { close(); }

  bool isOpen() const { return number_ >= 0; }
  int number() const { return number_; }

  void close() {
    if (isOpen()) {
      ::close(std::exchange(number_, NONE));
    }
  }

 private:
  static constexpr int NONE = -1;

  int number_ = NONE;
};

}  // namespace quobrak::host
