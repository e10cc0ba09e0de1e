#include "drivers/simulator/DescriptionFile.h"

#include <algorithm>
#include <variant>

#include "drivers/simulator/NamedValues.h"

namespace quobrak::simulator {

void DescriptionFaults::add(const std::string& file, std::optional<TextPlace> place, const std::string& reason) {
  auto found = std::find_if(files_.begin(), files_.end(), [&file](const auto& entry) { return entry.first == file; });
  if (found == files_.end()) {
    found = files_.insert(found, {file, {}});
  }
  std::vector<Fault>& faults = found->second;
  if (Fault fault(place, reason); std::find(faults.begin(), faults.end(), fault) == faults.end()) {
    faults.push_back(std::move(fault));
  }
}

std::string DescriptionFaults::text() const {
  constexpr std::size_t MOST_SHOWN = 50;
  std::string text;
  std::size_t count = 0;
  for (const auto& [file, noted] : files_) {
    std::vector<Fault> faults = noted;
    std::stable_sort(faults.begin(), faults.end(),
                     [](const Fault& one, const Fault& other) { return one.first < other.first; });
    for (const auto& [place, reason] : faults) {
      if (++count > MOST_SHOWN) {
        continue;
      }
      text += (text.empty() ? "" : "\n") + file +
              (place ? ":" + std::to_string(place->line) + ":" + std::to_string(place->column) : "") + ": " + reason;
    }
  }
  return count > MOST_SHOWN ? text + "\nand " + std::to_string(count - MOST_SHOWN) + " more" : text;
}

DescriptionFile::DescriptionFile(const PhoneFiles& files, const std::string& path, DescriptionFaults& faults)
    : name_(files.nameOf(path)), faults_(faults) {
  std::optional<std::string> text = files.read(path);
  if (!text) {
    faults_.add(name_, std::nullopt, "the file is missing or cannot be read");
    return;
  }
  text_ = *std::move(text);
  places_.emplace(text_);
  attempt([this] { document_ = JSONDecoder::decode(text_); });
  if (document_) {
    for (const JSONPlaces::Repetition& repetition : places_->repetitions()) {
      faults_.add(name_, repetition.place, repetition.keyPath + ": stands twice in one object");
    }
  }
}

void DescriptionFile::note(const DecodingError& error) {
  if (const auto* const place = std::get_if<TextPlace>(&error.place())) {
    faults_.add(name_, *place, error.reason());
    return;
  }
  const auto& keyPath = std::get<std::string>(error.place());
  faults_.add(name_, places_->of(keyPath), keyPath.empty() ? error.reason() : keyPath + ": " + error.reason());
}

void DescriptionFile::requireKnownKeys(const JSONReader& object, const std::vector<std::string>& known) {
  for (const auto& [key, value] : object.members()) {
    if (std::find(known.begin(), known.end(), key) == known.end()) {
      note(value, "unknown; what may stand here is " + listed(known));
    }
  }
}

std::string listed(const std::vector<std::string>& texts) {
  std::string list;
  for (const std::string& text : texts) {
    list += (list.empty() ? "\"" : ", \"") + text + "\"";
  }
  return list;
}

std::int64_t integerBetween(const JSONReader& json, std::int64_t least, std::int64_t most) {
  const std::int64_t number = json.integer();
  if (number < least || number > most) {
    json.fail("must be between " + std::to_string(least) + " and " + std::to_string(most) + ", found " +
              std::to_string(number));
  }
  return number;
}

std::string nonEmptyText(const JSONReader& json) {
  std::string text = json.text();
  if (text.empty()) {
    json.fail("must not be empty");
  }
  return text;
}

void requireTextIfAny(const JSONReader& object, std::string_view key) {
  if (const auto member = object.optionalMember(key)) {
    static_cast<void>(member->text());
  }
}

std::chrono::milliseconds readDuration(const JSONReader& json) {
  constexpr std::int64_t ONE_HOUR = 3'600'000;
  return std::chrono::milliseconds(integerBetween(json, 0, ONE_HOUR));
}

std::map<std::string, std::string> readNamedTexts(DescriptionFile& file, const JSONReader& json) {
  std::map<std::string, std::string> texts;
  for (const auto& member : json.members()) {
    file.attempt([&] {
      const auto& [name, text] = member;
      requireValueName(text, name);
      texts.emplace(name, text.text());
    });
  }
  return texts;
}

void requireValueName(const JSONReader& json, const std::string& name) {
  if (!isValueName(name)) {
    json.fail("\"" + name +
              "\" is no name of a value; one is like \"shop.basket_1\": words of ASCII letters, digits and _, with "
              "dots between them, none of which begins with a digit or means something in predicates, as \"in\" does");
  }
}

}  // namespace quobrak::simulator
