#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quobrak {

/// The black web page that the browser shows while a reference is measured. Whoever measures serves it, so its address
/// is configuration: who starts the test takes it from the environment variable `VARIABLE` and installs it.
class ReferencePage {
 public:
  static constexpr const char* VARIABLE = "QUOBRAK_REFERENCE_PAGE";
  /// What `VARIABLE` must hold, for error texts.
  static constexpr const char* RIGHT_ADDRESS =
      "an address such as https://www.example.com/black/index.html, which begins with https:// and has that path";

  /// A page at an address that is reserved for examples: nobody serves it.
  ReferencePage() = default;

  /// The page at an address of the form https://HOST/black/index.html, where HOST may have a port; none for any other
  /// text.
  static std::optional<ReferencePage> at(std::string_view address);

  const std::string& address() const { return address_; }

  /// The page of the whole process: the one at the reserved address until another one is installed.
  static const ReferencePage& shared();
  static void install(ReferencePage page);

 private:
  std::string address_ = "https://download.example.com/black/index.html";
};

}  // namespace quobrak
