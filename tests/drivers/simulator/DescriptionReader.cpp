#include "tests/drivers/simulator/DescriptionReader.h"

#include <algorithm>
#include <array>
#include <regex>
#include <utility>

#include "platform/uiautomation/ElementType.h"

namespace quobrak::testing {

namespace {

struct QuotedText {
  std::string_view opening;
  std::string DescribedElement::*text;
};

constexpr std::array QUOTED_TEXTS{
    QuotedText{", identifier: '", &DescribedElement::identifier},
    QuotedText{", label: '", &DescribedElement::label},
    QuotedText{", title: '", &DescribedElement::title},
    QuotedText{", placeholderValue: '", &DescribedElement::placeholder},
};

constexpr std::string_view VALUE = ", value: ";

bool removePrefix(std::string_view& text, std::string_view prefix) {
  const bool isThere = text.starts_with(prefix);
  text.remove_prefix(isThere ? prefix.size() : 0);
  return isThere;
}

bool beginsAttribute(std::string_view rest) {
  return rest.starts_with(VALUE) ||
         std::any_of(QUOTED_TEXTS.begin(), QUOTED_TEXTS.end(),
                     [rest](const QuotedText& text) { return rest.starts_with(text.opening); });
}

/// Reads what comes behind the frame, in all ways.
class RestReader {
 public:
  explicit RestReader(std::vector<DescribedElement>& found) : found_(found) {}

  /// The texts in quotes before `next` have been passed.
  void read(std::string_view rest, std::size_t next, const DescribedElement& element) {
    for (std::size_t place = next; place < QUOTED_TEXTS.size(); ++place) {
      if (removePrefix(rest, QUOTED_TEXTS[place].opening)) {
        readQuoted(rest, place, element);
        return;
      }
    }
    if (removePrefix(rest, VALUE)) {
      readValue(rest, element);
    } else {
      readFlags(rest, element);
    }
  }

 private:
  void readQuoted(std::string_view rest, std::size_t place, const DescribedElement& element) {
    for (auto end = rest.find('\'', 1); end < rest.npos; end = rest.find('\'', end + 1)) {
      if (beginsAttribute(rest.substr(end + 1))) {
        readOn(rest, end, place, element);
      }
    }
    for (auto end = rest.rfind('\''); end != rest.npos && end > 0; end = rest.rfind('\'', end - 1)) {
      if (!beginsAttribute(rest.substr(end + 1))) {
        readOn(rest, end, place, element);
      }
    }
  }

  void readOn(std::string_view rest, std::size_t end, std::size_t place, DescribedElement element) {
    element.*QUOTED_TEXTS[place].text = rest.substr(0, end);
    read(rest.substr(end + 1), place + 1, element);
  }

  void readValue(std::string_view rest, DescribedElement element) {
    for (std::size_t end = 1; end <= rest.size(); ++end) {
      element.value = rest.substr(0, end);
      readFlags(rest.substr(end), element);
    }
  }

  void readFlags(std::string_view rest, DescribedElement element) {
    element.hasKeyboardFocus = removePrefix(rest, ", Keyboard Focused");
    element.hasFocus = !element.hasKeyboardFocus && removePrefix(rest, ", Focused");
    element.isSelected = removePrefix(rest, ", Selected");
    element.isEnabled = !removePrefix(rest, ", Disabled");
    if (rest.empty()) {
      found_.push_back(std::move(element));
    }
  }

  std::vector<DescribedElement>& found_;
};

/// The groups: the margin, the type, whether main, the address, the process identifier, the frame.
std::cmatch beginningOf(std::string_view line) {
  static const std::string NUMBER = R"(-?(?:\d+\.\d|inf|nan))";
  static const std::string PAIR = R"(\{)" + NUMBER + ", " + NUMBER + R"(\})";
  static const std::regex BEGINNING(R"(( →|(?:  )+)([A-Za-z]+)( \(Main\))?, (0x[0-9a-f]+)(?:, pid: (\d+))?)"
                                    R"((?:, (\{)" +
                                    PAIR + ", " + PAIR + R"(\}))?)");
  std::cmatch match;
  std::regex_search(line.data(), line.data() + line.size(), match, BEGINNING, std::regex_constants::match_continuous);
  return match;
}

bool beginsElement(std::string_view line) {
  const std::cmatch beginning = beginningOf(line);
  return !beginning.empty() && elementTypeNamed(beginning[2].str());
}

}  // namespace

std::vector<DescribedElement> readings(std::string_view line) {
  std::vector<DescribedElement> found;
  if (!beginsElement(line)) {
    return found;
  }
  const std::cmatch beginning = beginningOf(line);
  const bool isRoot = beginning[1] == " →";
  // Those right below the root are indented by four.
  const std::size_t depth = isRoot ? 0 : static_cast<std::size_t>(beginning[1].length()) / 2 - 1;
  DescribedElement element{.depth = depth,
                           .type = beginning[2],
                           .isMain = beginning[3].matched,
                           .address = beginning[4],
                           .processIdentifier = {},
                           .frame = beginning[6],
                           .identifier = {},
                           .label = {},
                           .title = {},
                           .placeholder = {},
                           .value = {}};
  if (beginning[5].matched) {
    element.processIdentifier = std::stoi(beginning[5]);
  }
  RestReader(found).read(line.substr(static_cast<std::size_t>(beginning.length())), 0, element);
  return found;
}

bool isPlain(const DescribedElement& element) {
  const auto holdsAttribute = [](std::string_view text) {
    for (auto quote = text.find('\''); quote != text.npos; quote = text.find('\'', quote + 1)) {
      if (beginsAttribute(text.substr(quote + 1))) {
        return true;
      }
    }
    return false;
  };
  const auto endsInFlag = [](std::string_view text) {
    return text.ends_with(" Focused") || text.ends_with(" Selected") || text.ends_with(" Disabled");
  };
  return !endsInFlag(element.value) &&
         std::none_of(QUOTED_TEXTS.begin(), QUOTED_TEXTS.end(),
                      [&](const QuotedText& text) { return holdsAttribute(element.*text.text); });
}

std::vector<std::string> subtreeLines(std::string_view description) {
  constexpr std::string_view TITLE = "\nElement subtree:\n";
  constexpr std::string_view NEXT_TITLE = "\nPath to element:\n";
  const auto begin = description.find(TITLE) + TITLE.size();
  std::string_view subtree = description.substr(begin, description.find(NEXT_TITLE) - begin);
  std::vector<std::string> lines;
  while (!subtree.empty()) {
    const std::string_view line = subtree.substr(0, subtree.find('\n'));
    subtree.remove_prefix(std::min(line.size() + 1, subtree.size()));
    if (beginsElement(line)) {
      lines.emplace_back(line);
    } else {
      lines.back().append("\n").append(line);
    }
  }
  return lines;
}

}  // namespace quobrak::testing
