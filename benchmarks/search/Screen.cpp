#include "benchmarks/search/Screen.h"

#include <pugixml.hpp>

#include <array>
#include <random>
#include <sstream>
#include <string_view>

namespace quobrak::benchmarks {

using simulator::Element;

namespace {

constexpr std::array<std::string_view, 15> TITLES{
    "Desk lamp with a shade of linen",
    "Armchair, oak and wool",
    "Round mirror, 60 cm",
    "Stool for the kitchen",
    "Rug, woven by hand",
    "Vase of recycled glass",
    "Bookshelf for narrow rooms",
    "Bed linen, stone-washed",
    "Coat hooks of brass",
    "Candle holder, set of three",
    "Garden chair, can be piled",
    "Bücherregal aus Kiefernholz",
    "Größerer Teppich für das Gästezimmer",
    "Настольная лампа",
    "木製の椅子",
};

constexpr std::array<std::string_view, 9> SUBTITLES{
    "In stock near you",    "Delivered within three days",  "Only a few left", "New",      "Reduced",
    "Noch vor Weihnachten", "Lieferung in 3 Tagen für 5 €", "Скоро в продаже", "在庫あり",
};

class Shop {
 public:
  Shop(Element& list, std::size_t elements) : list_(list), left_(elements) {}

  void fill() {
    for (std::size_t row = 0; left_ > 0; ++row) {
      addRow(std::to_string(row));
    }
  }

 private:
  void addRow(const std::string& number) {
    Element& cell = add(list_, ElementType::cell, "row." + number, "");
    const std::string title(TITLES[below(TITLES.size())]);
    add(cell, ElementType::staticText, "title." + number, title + " " + number);
    add(cell, ElementType::staticText, "", std::string(SUBTITLES[below(SUBTITLES.size())]));
    add(cell, ElementType::staticText, "price." + number, std::to_string(below(1000)) + ",90 €");
    add(cell, ElementType::button, "buy." + number, below(500) == 0 ? "Check out" : "Add to the basket: " + title);
    if (below(4) == 0) {
      add(cell, ElementType::textField, "amount." + number, "").placeholder = below(2) == 0 ? "How many" : "Stückzahl";
    }
  }

  Element& add(Element& parent, ElementType type, const std::string& identifier, const std::string& label) {
    if (left_ == 0) {
      return spare_;
    }
    --left_;
    Element& element = parent.append(type);
    element.identifier = identifier;
    element.label = label;
    element.isEnabled = below(8) != 0;
    return element;
  }

  std::size_t below(std::size_t end) { return static_cast<std::size_t>(generator_() % end); }

  Element& list_;
  std::size_t left_;
  /// Takes what comes after the last element.
  Element spare_{ElementType::other};
  std::mt19937 generator_{1};
};

}  // namespace

std::unique_ptr<Element> listScreen(std::size_t elements) {
  auto root = std::make_unique<Element>(ElementType::application);
  root->label = "Shop";
  Element& list = root->append(ElementType::table);
  Shop(list, elements - 1).fill();
  return root;
}

std::vector<ElementTexts> textsOf(const Element& root) {
  std::vector<ElementTexts> texts;
  forEachDescendant(root, [&texts](const Element& element) {
    texts.push_back({element.label, element.identifier, element.placeholder, element.isEnabled});
  });
  return texts;
}

std::string pageSourceOf(const Element& root) {
  pugi::xml_document document;
  pugi::xml_node list = document.append_child("Application").append_child("Table");
  for (const ElementTexts& texts : textsOf(root)) {
    pugi::xml_node node = list.append_child("Element");
    node.append_attribute("label") = texts.label.c_str();
    node.append_attribute("identifier") = texts.identifier.c_str();
    if (texts.placeholder) {
      node.append_attribute("placeholderValue") = texts.placeholder->c_str();
    }
    node.append_attribute("enabled") = texts.isEnabled;
  }
  std::ostringstream text;
  document.save(text, "", pugi::format_raw);
  return text.str();
}

}  // namespace quobrak::benchmarks
