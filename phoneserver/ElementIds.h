#pragma once

#include <cstdint>
#include <list>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace quobrak::phoneserver {

/// The ids by which a client names the elements that it found. The same element always has the same id. Only the last
/// `CAPACITY` that were used are known; older ones are forgotten.
class ElementIds {
 public:
  static constexpr std::size_t CAPACITY = 1024;

  /// The id of the element of that number, from now on known.
  std::string idOf(std::uint64_t number);

  /// The number of the element; none for an id that is not known.
  std::optional<std::uint64_t> numberOf(std::string_view id);

 private:
  void use(std::uint64_t number);

  /// The last one used comes first.
  std::list<std::uint64_t> used_;
  std::unordered_map<std::uint64_t, std::list<std::uint64_t>::iterator> places_;
};

}  // namespace quobrak::phoneserver
