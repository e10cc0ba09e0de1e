#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "phoneserver/ServedPhone.h"

namespace quobrak::phoneserver {

/// An alert or sheet on the active application's screen, as clients see it.
class Alert {
 public:
  /// The one that lies in front. Raises `WireError` "no such alert" where there is none.
  static Alert required(ServedPhone& served, ServedPhone::Binding binding);

  /// Its texts, one below the other.
  std::string text() const;

  std::vector<std::string> buttonLabels() const;

  /// Touches the button with that label. Raises `WireError` "invalid element state" where it has none.
  void press(const std::string& label) const;

  /// Touches what the session's setting selects or, where it selects nothing, the button that usually agrees: the last
  /// one of an alert, the first one of a sheet.
  void accept() const;

  /// The same with the button that usually refuses: the first one of an alert, the last one of a sheet.
  void dismiss() const;

 private:
  using Elements = std::vector<const simulator::Element*>;
  enum class Side { first, last };

  Alert(ServedPhone& served, const simulator::Element& element) : served_(served), element_(element) {}

  Elements buttons() const;
  void pressUsual(std::string_view selectorSetting, Side side) const;
  void touch(const simulator::Element& button) const;

  ServedPhone& served_;
  const simulator::Element& element_;
};

}  // namespace quobrak::phoneserver
