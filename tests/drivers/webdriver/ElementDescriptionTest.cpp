#include "drivers/webdriver/ElementDescription.h"

#include <gtest/gtest.h>

namespace quobrak::webdriver {
namespace {

const FoundElement APPLICATION{
    .type = ElementType::application, .label = "Shop", .frame = {.origin = {0, 0}, .size = {390, 844}}};

TEST(Description, OfAnApplicationHasTheServersWordsIndented) {
  struct Row {
    const char* subtree;
    const char* indented;
  };
  constexpr Row ROWS[] = {
      {"", ""},
      {"Window, {{0.0, 0.0}, {390.0, 844.0}}\n  Button\n", "    Window, {{0.0, 0.0}, {390.0, 844.0}}\n      Button\n"},
      {"Window", "    Window\n"},
      {"Window\n\nWindow", "    Window\n    \n    Window\n"},
  };
  const std::string head =
      "Attributes: Application, {{0.0, 0.0}, {390.0, 844.0}}, label: 'Shop'\n"
      "Element subtree:\n"
      " →Application, {{0.0, 0.0}, {390.0, 844.0}}, label: 'Shop'\n";
  for (const auto& [subtree, indented] : ROWS) {
    EXPECT_EQ(description(APPLICATION, std::string(subtree)), head + indented);
  }
}

TEST(Description, OfAnElementHasALineForEachOneBelow) {
  const FoundElement cell{.type = ElementType::cell, .frame = {.origin = {-1, 10}, .size = {100, 44}}};
  const FoundElement field{.type = ElementType::textField,
                           .identifier = "name",
                           .label = "Name",
                           .value = "Ada",
                           .placeholder = "Your name",
                           .isEnabled = false,
                           .isSelected = true};
  const FoundElement slider{.type = ElementType::slider, .value = OtherValue{}, .placeholder = ""};
  EXPECT_EQ(
      description(cell, std::vector<FoundElement>{field, slider}),
      "Attributes: Cell, {{-1.0, 10.0}, {100.0, 44.0}}\n"
      "Element subtree:\n"
      " →Cell, {{-1.0, 10.0}, {100.0, 44.0}}\n"
      "    TextField, {{0.0, 0.0}, {0.0, 0.0}}, identifier: 'name', label: 'Name', placeholderValue: 'Your name', "
      "value: Ada, Selected, Disabled\n"
      "    Slider, {{0.0, 0.0}, {0.0, 0.0}}\n");
  EXPECT_EQ(description(cell, std::vector<FoundElement>()),
            "Attributes: Cell, {{-1.0, 10.0}, {100.0, 44.0}}\n"
            "Element subtree:\n"
            " →Cell, {{-1.0, 10.0}, {100.0, 44.0}}\n");
}

TEST(Description, ShowsWhateverFramesServersGive) {
  constexpr double BEYOND = 1e20;
  const FoundElement cell{.type = ElementType::cell, .frame = {.origin = {-0.5, -BEYOND}, .size = {BEYOND, 1e-9}}};
  EXPECT_EQ(description(cell, std::vector<FoundElement>()),
            "Attributes: Cell, {{-0.5, -100000000000000000000.0}, {100000000000000000000.0, 0.0}}\n"
            "Element subtree:\n"
            " →Cell, {{-0.5, -100000000000000000000.0}, {100000000000000000000.0, 0.0}}\n");
}

}  // namespace
}  // namespace quobrak::webdriver
