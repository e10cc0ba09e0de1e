#include "drivers/simulator/Element.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace quobrak::simulator {
namespace {

using ::testing::ElementsAre;

Element& add(Element& parent, const std::string& label) {
  Element& child = parent.append(ElementType::other);
  child.label = label;
  return child;
}

std::vector<std::string> labelsBelow(const Element& root) {
  std::vector<std::string> labels;
  forEachDescendant(root, [&labels](const Element& element) { labels.push_back(element.label); });
  return labels;
}

TEST(Element, AChildKnowsItsParent) {
  Element root(ElementType::window);
  Element& child = root.append(std::make_unique<Element>(ElementType::button));
  EXPECT_EQ(child.parent(), &root);
  EXPECT_EQ(root.parent(), nullptr);
  ASSERT_EQ(root.children().size(), 1);
  EXPECT_EQ(root.children().front().get(), &child);
}

TEST(Element, ARemovedChildIsARootWithAllBelowIt) {
  Element root(ElementType::window);
  add(root, "first");
  Element& second = add(root, "second");
  add(second, "inner");
  add(root, "third");
  const std::unique_ptr<Element> removed = root.remove(second);
  EXPECT_EQ(removed.get(), &second);
  EXPECT_EQ(removed->parent(), nullptr);
  EXPECT_THAT(labelsBelow(*removed), ElementsAre("inner"));
  EXPECT_THAT(labelsBelow(root), ElementsAre("first", "third"));
}

TEST(Element, ACopyHasEveryAttributeAndAllBelowIt) {
  Element root(ElementType::window);
  Element& original = root.append(ElementType::textField);
  original.identifier = "identifier";
  original.label = "label";
  original.value = "value";
  original.placeholder = "placeholder";
  original.isEnabled = false;
  original.isSelected = true;
  original.hasKeyboardFocus = true;
  original.isHidden = true;
  original.scrolled = {5, 6};
  original.secret = "secret";
  original.frame = {{1, 2}, {3, 4}};
  add(add(original, "child"), "grandchild");

  const std::unique_ptr<Element> copy = original.copy();
  EXPECT_EQ(copy->type, ElementType::textField);
  EXPECT_EQ(copy->identifier, "identifier");
  EXPECT_EQ(copy->label, "label");
  EXPECT_EQ(copy->value, "value");
  EXPECT_EQ(copy->placeholder, "placeholder");
  EXPECT_FALSE(copy->isEnabled);
  EXPECT_TRUE(copy->isSelected);
  EXPECT_TRUE(copy->hasKeyboardFocus);
  EXPECT_TRUE(copy->isHidden);
  EXPECT_EQ(copy->frame, (Rect{{1, 2}, {3, 4}}));
  EXPECT_EQ(copy->scrolled, (Point{5, 6}));
  EXPECT_EQ(copy->secret, "secret");
  EXPECT_EQ(copy->parent(), nullptr);
  EXPECT_THAT(labelsBelow(*copy), ElementsAre("child", "grandchild"));
}

TEST(Element, ACopyIsIndependent) {
  Element root(ElementType::window);
  Element& child = add(root, "before");
  const std::unique_ptr<Element> copy = root.copy();
  child.label = "after";
  EXPECT_THAT(labelsBelow(*copy), ElementsAre("before"));
}

TEST(Element, LiesWithinItselfAndItsAncestors) {
  Element root(ElementType::window);
  Element& child = add(root, "child");
  Element& grandchild = add(child, "grandchild");
  Element& sibling = add(root, "sibling");
  EXPECT_TRUE(isWithin(grandchild, grandchild));
  EXPECT_TRUE(isWithin(grandchild, child));
  EXPECT_TRUE(isWithin(grandchild, root));
  EXPECT_FALSE(isWithin(child, grandchild));
  EXPECT_FALSE(isWithin(grandchild, sibling));
}

TEST(Element, TheRootHasNoParent) {
  Element root(ElementType::window);
  EXPECT_EQ(&rootOf(add(add(root, "child"), "grandchild")), &root);
  EXPECT_EQ(&rootOf(root), &root);
}

TEST(Element, DescendantsAreVisitedInDocumentOrderWithoutTheRoot) {
  Element root(ElementType::window);
  root.label = "root";
  add(add(root, "1"), "1.1");
  add(root, "2");
  EXPECT_THAT(labelsBelow(root), ElementsAre("1", "1.1", "2"));
}

TEST(Element, DescendantsOfAChangeableRootCanBeChanged) {
  Element root(ElementType::window);
  add(add(root, "1"), "1.1");
  forEachDescendant(root, [](Element& element) { element.label += "!"; });
  EXPECT_THAT(labelsBelow(root), ElementsAre("1!", "1.1!"));
}

}  // namespace
}  // namespace quobrak::simulator
