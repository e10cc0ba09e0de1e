#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quobrak::simulator {

/// The text in the bytes of a page source: UTF-8, UTF-16, or ISO-8859-1 where its XML declaration says so. A byte-order
/// mark is no part of it.
class PageText {
 public:
  /// The bytes must outlive this object. Throws `PageSourceError` where they are in no such encoding, and where they
  /// are JSON, as servers wrap a page.
  explicit PageText(std::string_view bytes);

  /// As long as this object lives.
  std::string_view utf8() const { return decoded_ ? std::string_view(*decoded_) : bytes_; }

 private:
  std::string_view bytes_;
  /// Where the bytes are not UTF-8 themselves.
  std::optional<std::string> decoded_;
};

}  // namespace quobrak::simulator
