#include "host/phone/ScreenPages.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "host/phone/ElementWords.h"
#include "host/phone/Reach.h"

namespace quobrak::host {

using simulator::Element;

namespace {

constexpr std::size_t INDENT = 2;
constexpr std::size_t GAP = 2;
/// A narrower terminal breaks lines itself.
constexpr std::size_t LEAST_WIDTH = 20;

/// A line of a tree before its columns are aligned.
struct Line {
  std::string rank;
  std::array<std::string, 4> frame;
  std::string text;
};

constexpr std::array<std::string_view, 4> FRAME_TITLES{"X", "Y", "Width", "Height"};

std::string remarksOn(const Element& element, const ShownScreen& screen) {
  std::string remarks;
  const auto add = [&remarks](const std::string& remark) {
    remarks += (remarks.empty() || remark.empty() ? "" : ", ") + remark;
  };
  add(element.isEnabled ? "" : "disabled");
  add(element.isSelected ? "selected" : "");
  add(element.hasKeyboardFocus ? "focused" : "");
  add(remarkOn(obstacleTo(element, screen)));
  return remarks;
}

/// The lines of the element and all below it.
class TreeLines {
 public:
  TreeLines(const ShownScreen& screen, const Elements& matches) : screen_(screen), matches_(matches) {}

  void add(const Element& element, std::size_t depth) {
    const auto found = std::find(matches_.begin(), matches_.end(), &element);
    const Rect& frame = element.frame;
    lines_.push_back({.rank = found == matches_.end() ? "" : std::to_string(found - matches_.begin() + 1),
                      .frame = {inPoints(frame.origin.x), inPoints(frame.origin.y), inPoints(frame.size.width),
                                inPoints(frame.size.height)},
                      .text = std::string(depth * INDENT, ' ') + describe(element, remarksOn(element, screen_))});
    for (const auto& child : element.children()) {
      add(*child, depth + 1);
    }
  }

  std::vector<Line> take() && { return std::move(lines_); }

 private:
  const ShownScreen& screen_;
  const Elements& matches_;
  std::vector<Line> lines_;
};

/// How wide the columns of a tree are; that of the ranks is 0 where nothing has one.
struct Widths {
  std::size_t rank = 0;
  std::array<std::size_t, 4> frame{};
};

Widths widthsOf(const std::vector<Line>& lines) {
  Widths widths;
  for (std::size_t i = 0; i < FRAME_TITLES.size(); ++i) {
    widths.frame[i] = FRAME_TITLES[i].size();
  }
  for (const Line& line : lines) {
    widths.rank = std::max(widths.rank, line.rank.size());
    for (std::size_t i = 0; i < line.frame.size(); ++i) {
      widths.frame[i] = std::max(widths.frame[i], line.frame[i].size());
    }
  }
  return widths;
}

std::string rightAligned(std::string_view text, std::size_t width) {
  return std::string(width - text.size(), ' ').append(text);
}

std::string lineText(const Line& line, const Widths& widths, Style style, const Terminal& terminal) {
  std::string text = widths.rank == 0 ? "" : rightAligned(line.rank, widths.rank) + std::string(GAP, ' ');
  for (std::size_t i = 0; i < line.frame.size(); ++i) {
    text += rightAligned(line.frame[i], widths.frame[i]) + std::string(GAP, ' ');
  }
  const std::size_t room = terminal.width > text.size() ? terminal.width - text.size() : 0;
  text += shortened(line.text, std::max(room, LEAST_WIDTH));
  return terminal.styled(style, text) + "\n";
}

std::string matchText(std::size_t rank, const Element& element, const ShownScreen& screen, const Terminal& terminal) {
  const std::string number = std::to_string(rank) + ". ";
  const std::string indent(INDENT + number.size(), ' ');
  const auto cut = [&](const std::string& text) {
    return shortened(text, std::max(terminal.width, indent.size() + LEAST_WIDTH) - indent.size());
  };
  const std::string place = placeOf(element);
  return std::string(INDENT, ' ') + number + terminal.styled(Style::bold, cut(describe(element, ""))) + "\n" +
         (place.empty() ? "" : indent + cut("in " + place) + "\n") + indent + "at " + describe(element.frame) + ": " +
         fateOfTap(element, screen) + "\n" +
         (element.isEnabled ? "" : indent + cut("disabled: commands that tap by text do not find it") + "\n");
}

std::string commandSentence(const Selector& selector) {
  if (selector.text.find(',') != std::string::npos && selector.kind != SelectorKind::predicate) {
    return "No command can have this selector: in a line of a script, a comma ends it.\n";
  }
  std::string commands;
  for (const std::string& command : commandsOf(selector)) {
    commands += (commands.empty() ? "So do " : " and ") + command;
  }
  return commands.empty() ? "" : commands + ".\n";
}

std::string countOf(std::size_t matches) {
  return matches == 0   ? "No element matches."
         : matches == 1 ? "1 element matches."
                        : std::to_string(matches) + " elements match, in the order in which nthElement counts them.";
}

}  // namespace

std::string screenTitle(const ShownScreen& screen, const Terminal& terminal) {
  std::string text = shown(screen.identifier());
  if (screen.root() == nullptr) {
    return text + ": its rules have ended it when it started\n";
  }
  text = terminal.styled(Style::bold, text + ", screen \"" + shown(screen.name()) + "\"") + "\n";
  if (screen.frontIdentifier() != screen.identifier()) {
    text += "In front of it is " + shown(screen.frontIdentifier()) + ".\n";
  }
  if (const Element* const alert = screen.systemAlert()) {
    text += "A system alert is up, which belongs to the home screen: " + nameOf(*alert) + ".\n";
  }
  return text;
}

std::string screenTree(const ShownScreen& screen, const Elements& matches, const Terminal& terminal) {
  if (screen.root() == nullptr) {
    return "";
  }
  TreeLines tree(screen, matches);
  tree.add(*screen.root(), 0);
  const std::vector<Line> lines = std::move(tree).take();
  const Widths widths = widthsOf(lines);
  Line titles{.rank = "#", .frame = {}, .text = "Element"};
  std::copy(FRAME_TITLES.begin(), FRAME_TITLES.end(), titles.frame.begin());
  std::string text = lineText(titles, widths, Style::dim, terminal);
  for (const Line& line : lines) {
    text += lineText(line, widths, line.rank.empty() ? Style::plain : Style::bold, terminal);
  }
  return text;
}

std::string matchList(const Selector& selector, const Elements& matches, const ShownScreen& screen,
                      const Terminal& terminal) {
  std::string text = written(selector) + " finds " + meaningOf(selector) + ".\n";
  text += commandSentence(selector);
  text += countOf(matches.size()) + "\n";
  for (std::size_t i = 0; i < matches.size(); ++i) {
    text += matchText(i + 1, *matches[i], screen, terminal);
  }
  return text;
}

}  // namespace quobrak::host
