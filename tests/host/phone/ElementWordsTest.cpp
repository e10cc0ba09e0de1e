#include "host/phone/ElementWords.h"

#include <gtest/gtest.h>

#include <limits>
#include <utility>

namespace quobrak::host {
namespace {

using simulator::Element;

TEST(ElementWords, AnElementIsNamedByItsLabelOrElseItsIdentifier) {
  Element element(ElementType::button);
  EXPECT_EQ(nameOf(element), "Button");
  element.identifier = "tab";
  EXPECT_EQ(nameOf(element), "Button 'tab'");
  element.label = "Basket";
  EXPECT_EQ(nameOf(element), "Button \"Basket\"");
  element.label = "a\x1b[2J";
  EXPECT_EQ(nameOf(element), "Button \"a␛[2J\"");
}

TEST(ElementWords, AnElementIsDescribedByAllItsTexts) {
  Element element(ElementType::textField);
  EXPECT_EQ(describe(element, ""), "TextField");
  element.label = "Name";
  element.identifier = "field\n";
  element.value = "";
  element.placeholder = "Your name";
  EXPECT_EQ(describe(element, ""), "TextField \"Name\" identifier 'field␊' value '' placeholder 'Your name'");
  EXPECT_EQ(describe(element, "disabled"),
            "TextField [disabled] \"Name\" identifier 'field␊' value '' placeholder 'Your name'");
}

TEST(ElementWords, APlaceIsToldFromTheOutside) {
  Element root(ElementType::application);
  root.label = "Shop";
  Element& inner = root.append(ElementType::window).append(ElementType::button);
  EXPECT_EQ(placeOf(inner), "Application \"Shop\" > Window");
  EXPECT_EQ(placeOf(*inner.parent()), "Application \"Shop\"");
  EXPECT_EQ(placeOf(root), "");
}

TEST(ElementWords, PointsAreWholeOrHaveOneDecimal) {
  constexpr double INFINITE = std::numeric_limits<double>::infinity();
  for (const auto& [points, text] :
       {std::pair{0.0, "0"}, std::pair{16.0, "16"}, std::pair{-3.0, "-3"}, std::pair{150.5, "150.5"},
        std::pair{0.26, "0.3"}, std::pair{INFINITE, "inf"}, std::pair{-INFINITE, "-inf"}}) {
    EXPECT_EQ(inPoints(points), text);
  }
  EXPECT_EQ(inPoints(std::numeric_limits<double>::quiet_NaN()), "nan");
  EXPECT_EQ(describe(Rect{{16, 107.5}, {358, 44}}), "16, 107.5, 358 x 44");
}

}  // namespace
}  // namespace quobrak::host
