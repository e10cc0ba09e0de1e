#pragma once

#include <string>
#include <string_view>

#include "platform/foundation/JSON.h"

namespace quobrak::phoneserver {

/// The settings of a session, by their names on the wire. Those that mean nothing to a simulated phone are kept and
/// told, so that a client finds what it has set.
class Settings {
 public:
  Settings();

  const JSONValue::Object& all() const { return values_; }

  /// Takes over the known ones. A name that no phone knows is passed over, as phones do; a value of the wrong kind
  /// raises `WireError` "invalid argument", and nothing is changed.
  void update(const JSONValue::Object& changes);

  /// The setting must be one of texts, of truth values, of numbers.
  const std::string& text(std::string_view name) const;
  bool truth(std::string_view name) const;
  double number(std::string_view name) const;

 private:
  JSONValue::Object values_;
};

}  // namespace quobrak::phoneserver
