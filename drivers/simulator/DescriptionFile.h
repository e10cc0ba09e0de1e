#pragma once

#include <chrono>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "drivers/simulator/PhoneFiles.h"
#include "platform/foundation/JSON.h"
#include "platform/foundation/JSONPlaces.h"
#include "platform/foundation/TextPlace.h"

namespace quobrak::simulator {

/// What is wrong with the files of a phone's folder.
class DescriptionFaults {
 public:
  /// `place` is none where the fault is the file's as a whole. What was added before is one fault.
  void add(const std::string& file, std::optional<TextPlace> place, const std::string& reason);

  bool isEmpty() const { return files_.empty(); }

  /// One fault in a line, "FILE:LINE:COLUMN: REASON", file by file in the order of their first faults, and in each from
  /// its beginning to its end; of very many only the first ones and how many more there are.
  std::string text() const;

 private:
  using Fault = std::pair<std::optional<TextPlace>, std::string>;
  std::vector<std::pair<std::string, std::vector<Fault>>> files_;
};

/// A JSON file of a phone's folder while it is read: whatever is wrong with it is noted, with its place, and reading
/// goes on.
class DescriptionFile {
 public:
  /// Notes a file that is missing or no JSON, and members that stand twice in one object. The faults must outlive this
  /// object.
  DescriptionFile(const PhoneFiles& files, const std::string& path, DescriptionFaults& faults);
  DescriptionFile(const DescriptionFile&) = delete;
  DescriptionFile& operator=(const DescriptionFile&) = delete;

  /// For error texts.
  const std::string& name() const { return name_; }

  /// The content; none where it was no JSON.
  std::optional<JSONReader> content() const { return document_ ? std::optional(JSONReader(*document_)) : std::nullopt; }

  /// Carries out `read`; a `DecodingError` that it throws is noted.
  template <class Read>
  void attempt(const Read& read) {
    try {
      read();
    } catch (const DecodingError& error) {
      note(error);
    }
  }

  /// Notes a fault at that place of the content.
  void note(const JSONReader& at, const std::string& reason) { note(DecodingError(at.keyPath(), reason)); }

  /// Notes each member of the object that is none of `known`: a misspelt key must not pass for one that was left out.
  void requireKnownKeys(const JSONReader& object, const std::vector<std::string>& known);

 private:
  void note(const DecodingError& error);

  std::string name_;
  DescriptionFaults& faults_;
  std::string text_;
  std::optional<JSONValue> document_;
  std::optional<JSONPlaces> places_;
};

/// The texts in quotes, with commas between them.
std::string listed(const std::vector<std::string>& texts);

// Values of descriptions. Each throws `DecodingError` for another kind of value and for one out of its range.

/// A whole number from `least` to `most`.
std::int64_t integerBetween(const JSONReader& json, std::int64_t least, std::int64_t most);
std::string nonEmptyText(const JSONReader& json);
/// What is left out is a text.
void requireTextIfAny(const JSONReader& object, std::string_view key);
/// A whole number of milliseconds, at most an hour.
std::chrono::milliseconds readDuration(const JSONReader& json);
/// The members of an object of texts. Their keys must be names of named values. A member that is otherwise is noted in
/// the file, and left out.
std::map<std::string, std::string> readNamedTexts(DescriptionFile& file, const JSONReader& json);
/// Throws, with the place of `json`, where the text cannot be the name of a named value.
void requireValueName(const JSONReader& json, const std::string& name);

}  // namespace quobrak::simulator
