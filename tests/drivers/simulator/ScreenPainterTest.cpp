#include "drivers/simulator/ScreenPainter.h"

#include "drivers/simulator/ElementArt.h"

#include <gtest/gtest.h>
#include <png.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <functional>
#include <limits>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace quobrak::simulator {
namespace {

constexpr Size SCREEN{200, 300};
constexpr double SCALE = 2;
constexpr std::uint32_t WHITE_PIXEL = 0xFFFFFF;

struct Picture {
  std::size_t width = 0;
  std::size_t height = 0;
  std::vector<std::uint32_t> pixels;

  std::uint32_t at(double x, double y) const {
    return pixels[static_cast<std::size_t>(y * SCALE) * width + static_cast<std::size_t>(x * SCALE)];
  }
};

Picture decoded(const Data& png) {
  png_image image{};
  image.version = PNG_IMAGE_VERSION;
  EXPECT_NE(png_image_begin_read_from_memory(&image, png.data(), png.size()), 0) << image.message;
  image.format = PNG_FORMAT_RGB;
  std::vector<std::uint8_t> bytes(PNG_IMAGE_SIZE(image));
  EXPECT_NE(png_image_finish_read(&image, nullptr, bytes.data(), 0, nullptr), 0) << image.message;
  Picture picture{image.width, image.height, {}};
  for (std::size_t at = 0; at < bytes.size(); at += 3) {
    picture.pixels.push_back(static_cast<std::uint32_t>(bytes[at] << 16U | bytes[at + 1] << 8U | bytes[at + 2]));
  }
  return picture;
}

Picture pictureOf(std::span<const Element* const> layers) {
  const std::optional<Data> png = ScreenPainter(SCREEN, SCALE).png(layers);
  EXPECT_TRUE(png.has_value());
  return png ? decoded(*png) : Picture{};
}

Picture pictureOf(const Element& root) {
  const Element* const layers[] = {&root};
  return pictureOf(layers);
}

std::unique_ptr<Element> emptyScreen() {
  auto root = std::make_unique<Element>(ElementType::application);
  root->frame = {{0, 0}, SCREEN};
  return root;
}

Element& add(Element& parent, ElementType type, const Rect& frame, const std::string& label = "") {
  Element& element = parent.append(type);
  element.frame = frame;
  element.label = label;
  return element;
}

bool isInside(const Rect& frame, std::size_t x, std::size_t y) {
  const double left = static_cast<double>(x) / SCALE;
  const double top = static_cast<double>(y) / SCALE;
  return left >= frame.origin.x && left < frame.origin.x + frame.size.width && top >= frame.origin.y &&
         top < frame.origin.y + frame.size.height;
}

// How many pixels differ inside the frame, and outside it.
struct Differences {
  int inside = 0;
  int outside = 0;
};

Differences differences(const Picture& one, const Picture& other, const Rect& frame) {
  Differences result;
  EXPECT_EQ(one.pixels.size(), other.pixels.size());
  for (std::size_t number = 0; number < std::min(one.pixels.size(), other.pixels.size()); ++number) {
    if (one.pixels[number] != other.pixels[number]) {
      ++(isInside(frame, number % one.width, number / one.width) ? result.inside : result.outside);
    }
  }
  return result;
}

constexpr Rect MIDDLE{{20, 100}, {160, 50}};

// What adding the element changes on an empty screen.
Differences changesOf(ElementType type, const Rect& frame, const std::function<void(Element&)>& adapt) {
  const auto root = emptyScreen();
  const Picture before = pictureOf(*root);
  adapt(add(*root, type, frame));
  return differences(before, pictureOf(*root), frame);
}

TEST(ScreenPainter, DrawsAnEmptyTreeAsAPlainPictureOfTheScreensSize) {
  const Picture picture = pictureOf(*emptyScreen());

  EXPECT_EQ(picture.width, 400U);
  EXPECT_EQ(picture.height, 600U);
  EXPECT_EQ(std::count(picture.pixels.begin(), picture.pixels.end(), WHITE_PIXEL), 400 * 600);
}

TEST(ScreenPainter, DrawsEqualTreesAsTheSameBytes) {
  const auto one = emptyScreen();
  add(*one, ElementType::button, MIDDLE, "Browse products");
  const auto other = one->copy();
  const Element* const ofOne[] = {one.get()};
  const Element* const ofOther[] = {other.get()};

  EXPECT_EQ(ScreenPainter(SCREEN, SCALE).png(ofOne), ScreenPainter(SCREEN, SCALE).png(ofOther));
}

TEST(ScreenPainter, GivesNoneForAScreenWithoutExtent) {
  EXPECT_EQ(ScreenPainter({0, 300}, SCALE).png({}), std::nullopt);
  EXPECT_EQ(ScreenPainter(SCREEN, std::numeric_limits<double>::quiet_NaN()).png({}), std::nullopt);
}

TEST(ScreenPainter, PaintsEveryKindThatHasArtInsideItsFrameOnly) {
  for (unsigned number = 0; number <= static_cast<unsigned>(ElementType::statusItem); ++number) {
    const auto type = static_cast<ElementType>(number);
    const bool dims = type == ElementType::alert || type == ElementType::sheet || type == ElementType::dialog;
    const Differences changes = changesOf(type, MIDDLE, [](Element& element) {
      element.label = "Label";
      element.value = "50%";
    });
    EXPECT_EQ(changes.inside > 0, painting::drawingOf(type) != nullptr) << nameOf(type);
    EXPECT_EQ(changes.outside > 0, dims || type == ElementType::icon) << nameOf(type);
  }
}

TEST(ScreenPainter, PaintsNothingOutsideAFrameThatIsTooSmallForItsKind) {
  constexpr Rect TINY{{100, 100}, {4, 3}};
  for (unsigned number = 0; number <= static_cast<unsigned>(ElementType::statusItem); ++number) {
    const auto type = static_cast<ElementType>(number);
    const bool dims = type == ElementType::alert || type == ElementType::sheet || type == ElementType::dialog;
    if (!dims && type != ElementType::icon) {
      const Differences changes = changesOf(type, TINY, [](Element& element) { element.label = "Label"; });
      EXPECT_EQ(changes.outside, 0) << nameOf(type);
    }
  }
}

TEST(ScreenPainter, HasArtForEveryKindThatAppsAreMadeOf) {
  for (const ElementType type : {ElementType::activityIndicator,
                                 ElementType::alert,
                                 ElementType::button,
                                 ElementType::cell,
                                 ElementType::checkBox,
                                 ElementType::collectionView,
                                 ElementType::datePicker,
                                 ElementType::icon,
                                 ElementType::image,
                                 ElementType::key,
                                 ElementType::keyboard,
                                 ElementType::link,
                                 ElementType::map,
                                 ElementType::navigationBar,
                                 ElementType::pageIndicator,
                                 ElementType::pickerWheel,
                                 ElementType::popUpButton,
                                 ElementType::progressIndicator,
                                 ElementType::radioButton,
                                 ElementType::searchField,
                                 ElementType::secureTextField,
                                 ElementType::segmentedControl,
                                 ElementType::sheet,
                                 ElementType::slider,
                                 ElementType::staticText,
                                 ElementType::statusBar,
                                 ElementType::stepper,
                                 ElementType::switchControl,
                                 ElementType::tabBar,
                                 ElementType::table,
                                 ElementType::textField,
                                 ElementType::textView,
                                 ElementType::toolbar,
                                 ElementType::webView}) {
    EXPECT_NE(painting::drawingOf(type), nullptr) << nameOf(type);
  }
}

TEST(ScreenPainter, ChangesOnlyTheFrameOfAnElementWithAnotherLabel) {
  for (const ElementType type : {ElementType::button, ElementType::staticText, ElementType::cell, ElementType::key,
                                 ElementType::icon, ElementType::link}) {
    const auto root = emptyScreen();
    Element& element = add(*root, type, {{33.3, 100.1}, {90.7, 44.9}}, "Before");
    const Picture before = pictureOf(*root);
    element.label = "A very much longer label, which does not fit into the frame";
    const Rect wholePixels{{33, 100}, {91, 45}};
    const Differences changes = differences(before, pictureOf(*root), wholePixels);
    EXPECT_GT(changes.inside, 0) << nameOf(type);
    EXPECT_EQ(changes.outside, 0) << nameOf(type);
  }
}

TEST(ScreenPainter, DrawsNothingForFramesThatCannotBeSeen) {
  constexpr double INFINITE = std::numeric_limits<double>::infinity();
  constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();
  const struct {
    std::string name;
    Rect frame;
  } rows[] = {
      {"right of the screen", {{200, 100}, {50, 50}}},  {"below the screen", {{20, 300}, {50, 50}}},
      {"left of the screen", {{-50, 100}, {50, 50}}},   {"above the screen", {{20, -50}, {50, 50}}},
      {"without width", {{20, 100}, {0, 50}}},          {"of negative height", {{20, 100}, {50, -50}}},
      {"infinitely wide", {{20, 100}, {INFINITE, 50}}}, {"nowhere", {{NOT_A_NUMBER, 100}, {50, 50}}},
  };
  for (const auto& row : rows) {
    for (const ElementType type : {ElementType::button, ElementType::image, ElementType::alert}) {
      const Differences changes = changesOf(type, row.frame, [](Element& element) { element.label = "Label"; });
      EXPECT_EQ(changes.inside + changes.outside, 0) << nameOf(type) << " " << row.name;
    }
  }
}

TEST(ScreenPainter, DrawsTheVisiblePartOfAnEnormousElement) {
  const Rect enormous{{-1e300, 100}, {2e300, 1e300}};

  const Differences changes = changesOf(ElementType::map, enormous, [](Element&) {});

  EXPECT_GT(changes.inside, 0);
  EXPECT_EQ(changes.outside, 0);
}

TEST(ScreenPainter, DrawsNothingOutsideAScrollViewThatHoldsIt) {
  for (const ElementType type :
       {ElementType::scrollView, ElementType::table, ElementType::collectionView, ElementType::webView}) {
    const auto root = emptyScreen();
    Element& view = add(*root, type, MIDDLE);
    const Picture before = pictureOf(*root);
    add(view, ElementType::image, {{40, 80}, {40, 200}});
    const Differences changes = differences(before, pictureOf(*root), MIDDLE);
    EXPECT_GT(changes.inside, 0) << nameOf(type);
    EXPECT_EQ(changes.outside, 0) << nameOf(type);
  }
}

TEST(ScreenPainter, DimsAllThatIsBehindAnAlert) {
  const auto app = emptyScreen();
  const auto system = emptyScreen();
  add(*system, ElementType::alert, MIDDLE, "Sold out");
  const Element* const layers[] = {app.get(), system.get()};

  const Picture picture = pictureOf(layers);

  EXPECT_EQ(picture.at(1, 1), 0x999999U);
  EXPECT_EQ(picture.at(199, 299), 0x999999U);
  EXPECT_EQ(picture.at(100, 145), pictureOf(*system).at(100, 145));
  EXPECT_NE(picture.at(100, 145), 0x999999U);
}

TEST(ScreenPainter, DrawsLaterLayersInFront) {
  const auto behind = emptyScreen();
  add(*behind, ElementType::keyboard, MIDDLE);
  const auto inFront = emptyScreen();
  add(*inFront, ElementType::table, MIDDLE);
  const Element* const layers[] = {behind.get(), inFront.get()};

  EXPECT_EQ(pictureOf(layers).pixels, pictureOf(*inFront).pixels);
}

TEST(ScreenPainter, DrawsABoxForACharacterThatTheFontLacks) {
  const auto changes = [](const std::string& label) {
    return changesOf(ElementType::staticText, MIDDLE, [&](Element& element) { element.label = label; }).inside;
  };

  EXPECT_GT(changes("日"), 0);
  EXPECT_EQ(changes("日"), changes("本"));
  EXPECT_GT(changes("\xFF"), 0);
  EXPECT_EQ(changes(" "), 0);
}

TEST(ScreenPainter, DrawsACharacterOfSeveralCodePointsThatTheFontLacksAsOneBox) {
  const auto pictureOfText = [](const std::string& label) {
    const auto root = emptyScreen();
    add(*root, ElementType::staticText, MIDDLE, label);
    return pictureOf(*root).pixels;
  };

  EXPECT_EQ(pictureOfText("👋🏽"), pictureOfText("日"));
  EXPECT_NE(pictureOfText("👋🏽"), pictureOfText("日本"));
}

TEST(ScreenPainter, DrawsTextAtTheSideOfItsFrameWhereItBegins) {
  constexpr Rect LEFT_HALF{{20, 100}, {80, 50}};
  constexpr Rect RIGHT_HALF{{100, 100}, {80, 50}};
  const struct {
    std::string label;
    Rect half;
  } rows[] = {
      {"abc", LEFT_HALF},
      {"12", LEFT_HALF},
      {"سلام", RIGHT_HALF},
      {"שלום", RIGHT_HALF},
  };
  for (const auto& row : rows) {
    for (const ElementType type : {ElementType::staticText, ElementType::link}) {
      const auto root = emptyScreen();
      const Picture empty = pictureOf(*root);
      add(*root, type, MIDDLE, row.label);
      const Differences changes = differences(empty, pictureOf(*root), row.half);
      EXPECT_GT(changes.inside, 0) << row.label << ", " << nameOf(type);
      EXPECT_EQ(changes.outside, 0) << row.label << ", " << nameOf(type);
    }
  }
}

TEST(ScreenPainter, DrawsALineInTheOrderInWhichItStands) {
  const auto pictureOfText = [](const std::string& label) {
    const auto root = emptyScreen();
    add(*root, ElementType::staticText, MIDDLE, label);
    return pictureOf(*root).pixels;
  };

  // U+202E turns the direction of what follows.
  EXPECT_EQ(pictureOfText("\u202Ecba"), pictureOfText("abc"));
  EXPECT_NE(pictureOfText("cba"), pictureOfText("abc"));
}

TEST(ScreenPainter, DrawsAMarkAtItsLetter) {
  // Above the bowl of the letter, where the font has moved it up and to the right.
  constexpr Rect OVER_THE_LETTER{{160, 102}, {12, 12}};
  const auto root = emptyScreen();
  Element& text = add(*root, ElementType::staticText, MIDDLE, "ك");
  const Picture without = pictureOf(*root);
  text.label = "كُ";
  const Picture with = pictureOf(*root);

  const Differences changes = differences(without, with, OVER_THE_LETTER);

  EXPECT_GT(changes.inside, 0);
  EXPECT_EQ(changes.outside, 0);
}

TEST(ScreenPainter, DrawsALetterDifferentlyWhereItIsJoined) {
  const auto pixelsOfText = [](const std::string& label) {
    return changesOf(ElementType::staticText, MIDDLE, [&](Element& element) { element.label = label; }).inside;
  };

  // A mark that keeps letters apart is not seen itself.
  EXPECT_NE(pixelsOfText("بب"), pixelsOfText("ب\u200Cب"));
}

TEST(ScreenPainter, PutsTheCaretWhereTheTextGoesOn) {
  constexpr std::uint32_t TINT_PIXEL = 0x007AFF;
  const auto caretOf = [](const std::string& placeholder, const std::string& typed) {
    const auto root = emptyScreen();
    Element& field = add(*root, ElementType::textField, MIDDLE);
    field.placeholder = placeholder;
    field.value = typed;
    field.hasKeyboardFocus = true;
    const Picture picture = pictureOf(*root);
    double x = MIDDLE.origin.x + 5;
    while (x < MIDDLE.origin.x + MIDDLE.size.width - 5 && picture.at(x, 125) != TINT_PIXEL) {
      x += 0.5;
    }
    return x;
  };

  EXPECT_EQ(caretOf("Name", ""), 30);
  EXPECT_EQ(caretOf("سلام", ""), 168);
  EXPECT_GT(caretOf("Name", "abc"), 40);
  EXPECT_LT(caretOf("Name", "abc"), 80);
  EXPECT_GT(caretOf("Name", "سلام"), 110);
  EXPECT_LT(caretOf("Name", "سلام"), 160);
  EXPECT_LT(caretOf("Name", "سلام سلام سلام سلام سلام سلام سلام سلام سلام"), 40);
}

TEST(ScreenPainter, MirrorsTheArrowOfARowThatReadsFromRightToLeft) {
  // Only the row's left part is on the screen, and its text is not.
  constexpr Rect ROW{{0, 100}, {260, 50}};
  constexpr Rect ELSEWHERE{{0, 500}, {100, 20}};
  constexpr Rect ARROW{{14, 117}, {10, 16}};
  const auto root = emptyScreen();
  Element& row = add(*root, ElementType::cell, ROW);
  Element& text = add(row, ElementType::staticText, ELSEWHERE, "abc");
  add(row, ElementType::staticText, ELSEWHERE, "the text that comes first decides");
  const Picture leftToRight = pictureOf(*root);
  text.label = "سلام";

  const Differences changes = differences(leftToRight, pictureOf(*root), ARROW);

  EXPECT_GT(changes.inside, 0);
  EXPECT_EQ(changes.outside, 0);
}

TEST(ScreenPainter, PutsARowsValueAtTheEndOfItsLabel) {
  constexpr Rect LEFT{{20, 100}, {60, 50}};
  constexpr Rect RIGHT{{120, 100}, {60, 50}};
  for (const auto& [label, end] : {std::pair{"abc", RIGHT}, std::pair{"سلام", LEFT}}) {
    const auto root = emptyScreen();
    Element& row = add(*root, ElementType::cell, MIDDLE, label);
    const Picture without = pictureOf(*root);
    row.value = "7";
    const Differences changes = differences(without, pictureOf(*root), end);
    EXPECT_GT(changes.inside, 0) << label;
    EXPECT_EQ(changes.outside, 0) << label;
  }
}

TEST(ScreenPainter, MirrorsTheArrowOfAChevronInARowThatReadsFromRightToLeft) {
  constexpr Rect CHEVRON{{100, 110}, {20, 30}};
  constexpr Rect ARROW{{105, 117}, {10, 16}};
  constexpr Rect ELSEWHERE{{0, 500}, {100, 20}};
  const auto root = emptyScreen();
  Element& row = add(*root, ElementType::cell, MIDDLE);
  Element& text = add(row, ElementType::staticText, ELSEWHERE, "abc");
  add(row, ElementType::button, CHEVRON, "chevron");
  const Picture leftToRight = pictureOf(*root);
  text.label = "سلام";

  const Differences changes = differences(leftToRight, pictureOf(*root), ARROW);

  EXPECT_GT(changes.inside, 0);
  EXPECT_EQ(changes.outside, 0);
}

TEST(ScreenPainter, MirrorsTheArrowOfTheWayBackThatReadsFromRightToLeft) {
  constexpr Rect BAR{{0, 100}, {200, 50}};
  const auto root = emptyScreen();
  Element& bar = add(*root, ElementType::navigationBar, BAR);
  Element& back = add(bar, ElementType::button, MIDDLE, "abc");
  back.identifier = "BackButton";
  const auto plain = [&] { return pictureOf(*root).at(100, 102); };
  const auto atLeft = [&] { return pictureOf(*root).at(22.5, 125); };
  const auto atRight = [&] { return pictureOf(*root).at(177.5, 125); };
  const auto behindRight = [&] { return pictureOf(*root).at(170, 117); };

  EXPECT_NE(atLeft(), plain());
  EXPECT_EQ(atRight(), plain());
  EXPECT_EQ(behindRight(), plain());
  back.label = "سلام";
  EXPECT_EQ(atLeft(), plain());
  EXPECT_NE(atRight(), plain());
  EXPECT_NE(behindRight(), plain());
}

TEST(ScreenPainter, DrawsAnElementDifferentlyInEachOfItsStates) {
  const struct {
    std::string name;
    ElementType type;
    std::function<void(Element&)> change;
  } rows[] = {
      {"disabled button", ElementType::button, [](Element& element) { element.isEnabled = false; }},
      {"disabled text", ElementType::staticText, [](Element& element) { element.isEnabled = false; }},
      {"selected cell", ElementType::cell, [](Element& element) { element.isSelected = true; }},
      {"switch that is on", ElementType::switchControl, [](Element& element) { element.value = "1"; }},
      {"slider further on", ElementType::slider, [](Element& element) { element.value = "70%"; }},
      {"typed text", ElementType::textField, [](Element& element) { element.value = "typed"; }},
      {"focused field", ElementType::textField, [](Element& element) { element.hasKeyboardFocus = true; }},
      {"shift key that holds", ElementType::key,
       [](Element& element) {
         element.label = "shift";
         element.isSelected = true;
       }},
      {"page indicator", ElementType::pageIndicator, [](Element& element) { element.value = "page 2 of 3"; }},
  };
  for (const auto& row : rows) {
    const auto root = emptyScreen();
    Element& element = add(*root, row.type, MIDDLE, "Label");
    const Picture before = pictureOf(*root);
    row.change(element);
    EXPECT_GT(differences(before, pictureOf(*root), MIDDLE).inside, 0) << row.name;
  }
}

TEST(ScreenPainter, DrawsASecureFieldsValueAsBullets) {
  const auto secure = emptyScreen();
  add(*secure, ElementType::secureTextField, MIDDLE).value = "sécret";
  const auto open = emptyScreen();
  add(*open, ElementType::textField, MIDDLE).value = "••••••";

  EXPECT_EQ(pictureOf(*secure).pixels, pictureOf(*open).pixels);
}

TEST(ScreenPainter, DrawsWhichPageIsTheCurrentOne) {
  const auto root = emptyScreen();
  Element& indicator = add(*root, ElementType::pageIndicator, MIDDLE);
  indicator.value = "page 1 of 3";
  const Picture first = pictureOf(*root);
  indicator.value = "page 3 of 3";

  EXPECT_GT(differences(first, pictureOf(*root), MIDDLE).inside, 0);
}

TEST(ScreenPainter, DrawsAValueThatIsThePlaceholderAsThePlaceholder) {
  const auto root = emptyScreen();
  Element& field = add(*root, ElementType::textField, MIDDLE);
  field.placeholder = "Name";
  const Picture empty = pictureOf(*root);
  field.value = "Name";

  EXPECT_EQ(pictureOf(*root).pixels, empty.pixels);
}

TEST(ScreenPainter, DoesNotDrawALabelAgainThatStandsInATextBelow) {
  constexpr Rect CORNER{{140, 128}, {38, 20}};
  for (const ElementType type :
       {ElementType::button, ElementType::cell, ElementType::navigationBar, ElementType::alert, ElementType::link}) {
    const auto root = emptyScreen();
    Element& element = add(*root, type, MIDDLE, "Label");
    const Picture alone = pictureOf(*root);
    Element& text = add(element, ElementType::staticText, CORNER, "Label");
    const Picture withText = pictureOf(*root);
    element.label.clear();
    text.label = "Other";
    EXPECT_GT(differences(alone, withText, CORNER).outside, 0) << nameOf(type);
    EXPECT_EQ(differences(withText, pictureOf(*root), CORNER).outside, 0) << nameOf(type);
  }
}

TEST(ScreenPainter, DoesNotDrawWhatIsHiddenButWhatIsInIt) {
  const auto root = emptyScreen();
  const Picture empty = pictureOf(*root);
  Element& hidden = add(*root, ElementType::button, MIDDLE, "Label");
  hidden.isHidden = true;
  EXPECT_EQ(pictureOf(*root).pixels, empty.pixels);
  add(hidden, ElementType::staticText, MIDDLE, "Text");
  EXPECT_NE(pictureOf(*root).pixels, empty.pixels);
}

TEST(ScreenPainter, DrawsALabelForWhichNothingThatIsSeenStands) {
  for (const ElementType hidden : {ElementType::staticText, ElementType::image}) {
    const auto root = emptyScreen();
    Element& button = add(*root, ElementType::toolbarButton, MIDDLE, "Label");
    const Picture alone = pictureOf(*root);
    Element& below = add(button, hidden, MIDDLE, "Label");
    EXPECT_NE(pictureOf(*root).pixels, alone.pixels) << nameOf(hidden);
    below.isHidden = true;
    EXPECT_EQ(pictureOf(*root).pixels, alone.pixels) << nameOf(hidden);
  }
}

TEST(ScreenPainter, DoesNotDimTheScreenForAHiddenAlert) {
  const auto root = emptyScreen();
  const Picture empty = pictureOf(*root);
  add(*root, ElementType::alert, MIDDLE, "Label").isHidden = true;
  EXPECT_EQ(pictureOf(*root).pixels, empty.pixels);
}

TEST(ScreenPainter, PrintsSignsOnTheKeysThatAreNamedWithWords) {
  const auto pictureOfKey = [](const std::string& label) {
    const auto root = emptyScreen();
    add(*root, ElementType::key, MIDDLE, label);
    return pictureOf(*root).pixels;
  };
  EXPECT_EQ(pictureOfKey("space"), pictureOfKey(" "));
  const std::string labels[] = {"shift", "delete", "numbers", "letters", "symbols", "return"};
  for (const std::string& one : labels) {
    for (const std::string& other : labels) {
      EXPECT_EQ(pictureOfKey(one) == pictureOfKey(other), one == other) << one << ", " << other;
    }
  }
}

Picture markedPictureOf(const Element& root, const std::vector<Mark>& marks) {
  const Element* const layers[] = {&root};
  const std::optional<Data> png = ScreenPainter(SCREEN, SCALE).png(layers, marks);
  EXPECT_TRUE(png.has_value());
  return png ? decoded(*png) : Picture{};
}

TEST(ScreenPainter, FramesAMarkAndPutsItsWordOnTheCorner) {
  const auto root = emptyScreen();
  const Picture plain = pictureOf(*root);
  const Picture framed = markedPictureOf(*root, {{.frame = MIDDLE, .word = ""}});
  for (const auto& [x, y] : {std::pair{100, 99}, std::pair{100, 150}, std::pair{19, 125}, std::pair{180, 125}}) {
    EXPECT_NE(framed.at(x, y), WHITE_PIXEL) << x << ", " << y;
  }
  EXPECT_EQ(differences(plain, framed, {{21, 101}, {158, 48}}).inside, 0) << "what is framed is seen";
  EXPECT_EQ(differences(plain, framed, {{17, 97}, {166, 56}}).outside, 0) << "the frame is narrow";
  const Picture numbered = markedPictureOf(*root, {{.frame = MIDDLE, .word = "1"}});
  const Rect plate{{13, 93}, {14, 14}};
  EXPECT_GT(differences(framed, numbered, plate).inside, 300) << "the plate is filled";
  EXPECT_EQ(differences(framed, numbered, plate).outside, 0);
}

TEST(ScreenPainter, WordsOfOneCornerStandSideBySide) {
  const auto root = emptyScreen();
  const Mark one{.frame = MIDDLE, .word = "1"};
  const Picture alone = markedPictureOf(*root, {one});
  const Picture both = markedPictureOf(*root, {one, {.frame = MIDDLE, .word = "2"}});
  const Rect besideTheFirst{{27, 93}, {14, 14}};
  EXPECT_GT(differences(alone, both, besideTheFirst).inside, 300);
  EXPECT_EQ(differences(alone, both, {{13, 93}, {14, 14}}).inside, 0) << "the first one stays as it is";
}

TEST(ScreenPainter, AFaintMarkHasAnotherColour) {
  const auto root = emptyScreen();
  const Picture strong = markedPictureOf(*root, {{.frame = MIDDLE, .word = ""}});
  const Picture faint = markedPictureOf(*root, {{.frame = MIDDLE, .word = "", .isFaint = true}});
  EXPECT_NE(strong.at(100, 99), faint.at(100, 99));
}

TEST(ScreenPainter, TheFirstMarkIsInFront) {
  const auto root = emptyScreen();
  const Mark one{.frame = MIDDLE, .word = ""};
  const Mark two{.frame = MIDDLE, .word = "", .isFaint = true};
  EXPECT_EQ(markedPictureOf(*root, {one, two}).at(100, 99), markedPictureOf(*root, {one}).at(100, 99));
  EXPECT_EQ(markedPictureOf(*root, {two, one}).at(100, 99), markedPictureOf(*root, {two}).at(100, 99));
}

TEST(ScreenPainter, AMarkIsSeenAsFarAsItIsOnTheScreen) {
  constexpr double INFINITE = std::numeric_limits<double>::infinity();
  const auto root = emptyScreen();
  const Picture plain = pictureOf(*root);
  const Rect screen{{0, 0}, SCREEN};
  for (const Rect& frame : {Rect{{300, 10}, {20, 20}}, Rect{{10, 10}, {0, 20}}, Rect{{0, 0}, {INFINITE, 20}}}) {
    EXPECT_EQ(differences(plain, markedPictureOf(*root, {{.frame = frame, .word = "1"}}), screen).inside, 0)
        << frame.origin.x << ", " << frame.size.width;
  }
  const Picture cut = markedPictureOf(*root, {{.frame = {{-50, 280}, {1e9, 1e9}}, .word = ""}});
  EXPECT_NE(cut.at(1, 290), WHITE_PIXEL) << "the edge of the screen is the frame's";
  EXPECT_NE(cut.at(199, 290), WHITE_PIXEL);
  EXPECT_NE(cut.at(100, 299), WHITE_PIXEL);
}

TEST(ScreenPainter, WithoutMarksThePictureIsTheSame) {
  const auto root = emptyScreen();
  add(*root, ElementType::button, MIDDLE, "Basket");
  EXPECT_EQ(markedPictureOf(*root, {}).pixels, pictureOf(*root).pixels);
}

}  // namespace
}  // namespace quobrak::simulator
