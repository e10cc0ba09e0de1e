#include "drivers/simulator/Keyboard.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "drivers/simulator/HitTest.h"
#include "drivers/simulator/PageSource.h"
#include "drivers/simulator/Rectangles.h"

namespace quobrak::simulator {
namespace {

using ::testing::ElementsAre;

constexpr Size SCREEN{390, 844};

std::unique_ptr<Element> keyboard(ElementType field = ElementType::textField) {
  return keyboardWindow(Element(field), SCREEN);
}

std::vector<const Element*> keysOf(const Element& window) {
  std::vector<const Element*> keys;
  forEachDescendant(window, [&keys](const Element& element) {
    if (element.type == ElementType::key || element.type == ElementType::button) {
      keys.push_back(&element);
    }
  });
  return keys;
}

/// The labels of the keys, those of one character in one text.
std::string labelsOf(const Element& window) {
  std::string labels;
  for (const Element* key : keysOf(window)) {
    const bool isWord = key->label.size() > 3;
    labels += isWord ? "[" + key->label + "]" : key->label;
  }
  return labels;
}

const Element& key(const Element& window, std::string_view name) {
  for (const Element* key : keysOf(window)) {
    if (key->label == name || key->identifier == name) {
      return *key;
    }
  }
  ADD_FAILURE() << "there is no key " << name;
  return window;
}

TEST(Keyboard, IsAWindowThatHoldsAKeyboardAlongTheLowerEdge) {
  const auto window = keyboard();
  EXPECT_EQ(window->type, ElementType::window);
  EXPECT_EQ(window->frame, (Rect{{0, 0}, SCREEN}));
  const Element& element = *window->children().front();
  EXPECT_EQ(element.type, ElementType::keyboard);
  EXPECT_EQ(element.frame, (Rect{{0, 552}, {390, 292}}));
}

TEST(Keyboard, IsNeverHigherThanTwoFifthsOfTheScreen) {
  const auto window = keyboardWindow(Element(ElementType::textField), {100, 200});
  EXPECT_EQ(window->children().front()->frame, (Rect{{0, 120}, {100, 80}}));
}

TEST(Keyboard, ShowsLettersAtFirst) {
  EXPECT_EQ(labelsOf(*keyboard()), "qwertyuiopasdfghjkl[shift]zxcvbnm[delete][numbers] [return]");
}

TEST(Keyboard, ShowsOtherPlanes) {
  const auto window = keyboard(ElementType::searchField);
  showPlane(*window, KeyboardPlane::capitals);
  EXPECT_EQ(labelsOf(*window), "QWERTYUIOPASDFGHJKL[shift]ZXCVBNM[delete][numbers] [search]");
  showPlane(*window, KeyboardPlane::numbers);
  EXPECT_EQ(labelsOf(*window), "1234567890-/:;()$&@\"[symbols].,?!'[delete][letters] [search]");
  showPlane(*window, KeyboardPlane::symbols);
  EXPECT_EQ(labelsOf(*window), "[]{}#%^*+=_\\|~<>€£¥•[numbers].,?!'[delete][letters] [search]");
  showPlane(*window, KeyboardPlane::letters);
  EXPECT_EQ(labelsOf(*window), "qwertyuiopasdfghjkl[shift]zxcvbnm[delete][numbers] [search]");
}

TEST(Keyboard, TheShiftKeyIsSelectedWhileItHolds) {
  const auto window = keyboard();
  EXPECT_FALSE(key(*window, "shift").isSelected);
  showPlane(*window, KeyboardPlane::capitals);
  EXPECT_TRUE(key(*window, "shift").isSelected);
  showPlane(*window, KeyboardPlane::numbers);
  EXPECT_FALSE(key(*window, "shift").isSelected);
}

TEST(Keyboard, NoKeyLiesOnAnotherAndNoneHangsOut) {
  const auto window = keyboard();
  for (const KeyboardPlane plane : {KeyboardPlane::letters, KeyboardPlane::numbers, KeyboardPlane::symbols}) {
    showPlane(*window, plane);
    const std::vector<const Element*> keys = keysOf(*window);
    for (const Element* one : keys) {
      const Rect& keyboardFrame = window->children().front()->frame;
      EXPECT_TRUE(contains(keyboardFrame, one->frame.origin)) << one->label;
      EXPECT_LE(one->frame.origin.x + one->frame.size.width, SCREEN.width + 1e-9) << one->label;
      EXPECT_GE(one->frame.size.width, 36) << one->label;
      EXPECT_TRUE(isHittable(*one)) << one->label;
    }
  }
}

TEST(Keyboard, TheReturnKeySaysWhatItIsFor) {
  struct Row {
    const char* page;
    const char* identifier;
    const char* label;
  };
  const Row ROWS[] = {
      {"<TextField/>", "Return", "return"},
      {"<SecureTextField/>", "Return", "return"},
      {"<TextView/>", "Return", "return"},
      {"<SearchField/>", "Search", "search"},
      {"<WebView><Other><TextField/></Other></WebView>", "Go", "go"},
      {"<WebView><SearchField/></WebView>", "Search", "search"},
      {"<WebView><TextView/></WebView>", "Return", "return"},
      {"<TextField name='URL' label='Address'/>", "Go", "go"},
      {"<TextField name='URL' label='Home'/>", "Return", "return"},
  };
  for (const auto& [page, identifier, label] : ROWS) {
    const auto screen = readPageSource(page, SCREEN);
    const Element* field = screen.get();
    while (!field->children().empty()) {
      field = field->children().front().get();
    }
    const auto window = keyboardWindow(*field, SCREEN);
    const Element* const returnKey = returnKeyIn(*window);
    ASSERT_NE(returnKey, nullptr) << page;
    EXPECT_EQ(returnKey->identifier, identifier) << page;
    EXPECT_EQ(returnKey->label, label) << page;
    EXPECT_EQ(returnKey->type, ElementType::button) << page;
  }
}

TEST(Keyboard, WhatKeysType) {
  struct Row {
    KeyboardPlane plane;
    const char* key;
    std::optional<std::string> text;
  };
  const Row ROWS[] = {
      {KeyboardPlane::letters, "q", "q"},
      {KeyboardPlane::capitals, "Q", "Q"},
      {KeyboardPlane::letters, "space", " "},
      {KeyboardPlane::letters, "delete", "\b"},
      {KeyboardPlane::letters, "Return", "\n"},
      {KeyboardPlane::numbers, "&", "&"},
      {KeyboardPlane::symbols, "€", "€"},
      {KeyboardPlane::letters, "shift", std::nullopt},
      {KeyboardPlane::letters, "more", std::nullopt},
  };
  const auto window = keyboard();
  for (const auto& [plane, name, text] : ROWS) {
    showPlane(*window, plane);
    EXPECT_EQ(typedBy(key(*window, name)), text) << name;
  }
}

TEST(Keyboard, WhatTheKeysOfACapturedKeyboardType) {
  const auto screen = readPageSource(R"(<Keyboard><Key name="Q" label="Q"/><Key name="space" label="space"/>
      <Key name="delete" label="delete"/><Button name="Done" label="done"/><Button name="emoji" label="emoji"/>
      <Button name="x" label="x"/></Keyboard>)",
                                     SCREEN);
  std::vector<std::optional<std::string>> typed;
  for (const Element* key : keysOf(*screen)) {
    typed.push_back(typedBy(*key));
    EXPECT_TRUE(isOnKeyboard(*key));
  }
  EXPECT_THAT(typed, ElementsAre("Q", " ", "\b", "\n", std::nullopt, std::nullopt));
  EXPECT_EQ(returnKeyIn(*screen)->label, "done");
}

TEST(Keyboard, AButtonElsewhereIsNoKey) {
  const auto screen = readPageSource(R"(<Window><Button name="Search"/><Keyboard/></Window>)", SCREEN);
  EXPECT_EQ(returnKeyIn(*screen), nullptr);
  forEachDescendant(*screen, [](const Element& element) { EXPECT_FALSE(isOnKeyboard(element)); });
}

TEST(Keyboard, WhatItShowsAfterAKey) {
  using enum KeyboardPlane;
  struct Row {
    KeyboardPlane before;
    const char* key;
    KeyboardPlane after;
  };
  const Row ROWS[] = {
      {letters, "q", letters},        {letters, "shift", capitals}, {letters, "more", numbers},
      {capitals, "Q", letters},       {capitals, "shift", letters}, {capitals, "more", numbers},
      {capitals, "delete", capitals}, {numbers, "1", numbers},      {numbers, "space", letters},
      {numbers, "shift", symbols},    {numbers, "more", letters},   {numbers, "delete", numbers},
      {symbols, "€", symbols},        {symbols, "shift", numbers},  {symbols, "more", letters},
  };
  const auto window = keyboard();
  for (const auto& [before, name, after] : ROWS) {
    showPlane(*window, before);
    EXPECT_EQ(planeAfter(key(*window, name), before), after) << name;
  }
}

}  // namespace
}  // namespace quobrak::simulator
