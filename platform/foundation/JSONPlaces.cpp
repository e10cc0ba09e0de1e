#include "platform/foundation/JSONPlaces.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <nlohmann/json.hpp>
#include <optional>
#include <set>

#include "platform/foundation/JSON.h"

namespace quobrak {

namespace {

/// Goes over a text once and tells how far it has come.
class WatchedCharacter {
 public:
  using iterator_category = std::input_iterator_tag;
  using value_type = char;
  using difference_type = std::ptrdiff_t;
  using pointer = const char*;
  using reference = const char&;

  WatchedCharacter(const char* character, const char*& reached) : character_(character), reached_(&reached) {}

  reference operator*() const { return *character_; }
  WatchedCharacter& operator++() {
    ++character_;
    *reached_ = character_;
    return *this;
  }
  WatchedCharacter operator++(int) {
    WatchedCharacter before = *this;
    ++*this;
    return before;
  }
  bool operator==(const WatchedCharacter& other) const { return character_ == other.character_; }

 private:
  const char* character_;
  const char** reached_;
};

}  // namespace

/// Follows the parser. An element or a key that it tells begins with the first character, behind what it told before,
/// that is neither a blank nor a comma.
class JSONPlaces::Reader final : public nlohmann::json_sax<nlohmann::json> {
 public:
  Reader(JSONPlaces& places, std::string_view text)
      : places_(places), text_(text), told_(text.data()), reached_(text.data()) {
    nlohmann::json::sax_parse(WatchedCharacter(text.data(), reached_),
                              WatchedCharacter(text.data() + text.size(), reached_), this);
  }

  bool null() override { return addScalar(); }
  bool boolean(bool) override { return addScalar(); }
  bool number_integer(number_integer_t) override { return addScalar(); }
  bool number_unsigned(number_unsigned_t) override { return addScalar(); }
  bool number_float(number_float_t, const string_t&) override { return addScalar(); }
  bool string(string_t&) override { return addScalar(); }
  bool binary(binary_t&) override { return addScalar(); }

  bool start_object(std::size_t) override { return open(std::nullopt); }
  bool start_array(std::size_t) override { return open(0); }
  bool end_object() override { return close(); }
  bool end_array() override { return close(); }

  bool key(string_t& name) override {
    Container& object = open_.back();
    object.member = keyPathOfMember(object.keyPath, name);
    const std::size_t offset = takeOffset();
    if (!object.members.insert(name).second) {
      places_.repetitions_.push_back({object.member, placeInText(text_, offset)});
      forgetWithin(object.member);
    }
    places_.offsets_.insert_or_assign(object.member, offset);
    return true;
  }

  bool parse_error(std::size_t, const std::string&, const nlohmann::json::exception&) override { return false; }

 private:
  /// An object or array whose end has not been read yet.
  struct Container {
    std::string keyPath;
    /// How many elements were read of an array; none for an object.
    std::optional<std::size_t> count;
    /// The key path of the member that comes next, in an object.
    std::string member;
    std::set<std::string> members;
  };

  std::size_t takeOffset() {
    constexpr std::string_view BETWEEN = " \t\r\n,";
    const std::size_t told = static_cast<std::size_t>(told_ - text_.data());
    const std::size_t start = text_.find_first_not_of(BETWEEN, told);
    told_ = reached_;
    return std::min(start, text_.size());
  }

  /// The key path of the value that begins. That of an array's element or of the document is noted.
  std::string beginValue() {
    const std::size_t offset = takeOffset();
    if (!open_.empty() && !open_.back().count) {
      return open_.back().member;
    }
    std::string keyPath = open_.empty() ? "" : keyPathOfElement(open_.back().keyPath, (*open_.back().count)++);
    places_.offsets_.insert_or_assign(keyPath, offset);
    return keyPath;
  }

  /// What is in an earlier member of that name.
  void forgetWithin(const std::string& keyPath) {
    std::erase_if(places_.offsets_, [&keyPath](const auto& entry) {
      return entry.first.size() > keyPath.size() && entry.first.starts_with(keyPath) &&
             (entry.first[keyPath.size()] == '.' || entry.first[keyPath.size()] == '[');
    });
  }

  bool addScalar() {
    beginValue();
    return true;
  }

  bool open(std::optional<std::size_t> count) {
    // Key paths of all depths would take room by the square of the deepest.
    if (open_.size() == JSONDecoder::MAXIMUM_NESTING) {
      return false;
    }
    open_.push_back({.keyPath = beginValue(), .count = count, .member = {}, .members = {}});
    return true;
  }

  bool close() {
    open_.pop_back();
    told_ = reached_;
    return true;
  }

  JSONPlaces& places_;
  std::string_view text_;
  /// Up to where the parser has told what it read, and up to where it has read. It may have read one character more,
  /// which is a separator or the end of something.
  const char* told_;
  const char* reached_;
  std::vector<Container> open_;
};

JSONPlaces::JSONPlaces(std::string_view text) : text_(text) {
  const Reader reader(*this, text);
}

TextPlace JSONPlaces::of(std::string_view keyPath) const {
  while (true) {
    if (const auto found = offsets_.find(keyPath); found != offsets_.end()) {
      return placeInText(text_, found->second);
    }
    if (keyPath.empty()) {
      return {};
    }
    const std::size_t lastStep = keyPath.find_last_of(".[");
    keyPath = keyPath.substr(0, lastStep == std::string_view::npos ? 0 : lastStep);
  }
}

}  // namespace quobrak
