// How long the simulated phone takes to load the page source of a long screen and to write its dump, and how long
// pugixml takes to parse and to print the same document. Then how long a person waits for a swipe, a search and a dump
// on a list of three thousand elements.

#include <pugixml.hpp>

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <ctime>
#include <initializer_list>
#include <iomanip>
#include <iostream>
#include <memory>
#include <numeric>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "benchmarks/screens/SettingsPage.h"
#include "drivers/simulator/ElementDescription.h"
#include "drivers/simulator/PageSource.h"
#include "drivers/simulator/PhoneFiles.h"
#include "drivers/simulator/PhoneLoader.h"
#include "drivers/simulator/Queries.h"
#include "drivers/simulator/SimulatedDriver.h"
#include "platform/foundation/VirtualClock.h"
#include "platform/uiautomation/XCUIApplication.h"

namespace {

using namespace quobrak;
using quobrak::benchmarks::settingsPage;
using simulator::Element;

constexpr int RUNS = 41;
constexpr std::size_t LONG_SCREEN = 10'000;
constexpr std::size_t LIST = 3'000;
constexpr double GREATEST_LOAD_RATIO = 3;
constexpr double GREATEST_DUMP_RATIO = 1;
constexpr double GREATEST_GROWTH = 15;
/// In milliseconds. A display shows each picture for as long: whoever waits no longer sees no pause.
constexpr double NO_PAUSE = 16;

void require(bool isSo, const std::string& what) {
  if (!isSo) {
    throw std::runtime_error(what);
  }
}

void showAtMost(const std::string& what, double figure, double target) {
  std::cout << "  " << what << ": " << figure << "   (target: at most " << target << ") "
            << (figure <= target ? "met" : "NOT MET") << '\n';
}

/// The processor's time, in milliseconds. That of a clock on the wall would count how often others interrupt on a busy
/// machine, which is the more often the longer something takes.
double now() {
  return 1000.0 * static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
}

class Times {
 public:
  explicit Times(std::string what) : what_(std::move(what)) {}

  /// What `make` makes is made once without the clock, since what others left in the caches and in the heap is theirs.
  /// The clock stops before it is destroyed.
  template <class Make>
  auto take(Make make) {
    make();
    return takeOnce(make);
  }

  template <class Make>
  auto takeOnce(Make make) {
    const double start = now();
    auto made = make();
    times_.push_back(now() - start);
    return made;
  }

  double median() const {
    std::vector<double> sorted = times_;
    std::sort(sorted.begin(), sorted.end());
    return sorted[sorted.size() / 2];
  }
  double sum() const { return std::accumulate(times_.begin(), times_.end(), 0.0); }
  double longest() const { return *std::max_element(times_.begin(), times_.end()); }

  void print() const { std::cout << "    " << what_ << ": " << median() << " ms\n"; }

 private:
  std::string what_;
  std::vector<double> times_;
};

class TextWriter final : public pugi::xml_writer {
 public:
  void write(const void* data, std::size_t size) override { text.append(static_cast<const char*>(data), size); }

  std::string text;
};

std::unique_ptr<pugi::xml_document> parsedByPugixml(const std::string& page) {
  auto document = std::make_unique<pugi::xml_document>();
  require(document->load_buffer(page.data(), page.size()), "pugixml does not parse the page");
  return document;
}

std::string dumpOf(const Element& screen) {
  constexpr int PROCESS = 3165;
  const simulator::QueryEvaluator queries([](const Element&) { return true; });
  const XCUIApplication application("com.apple.Preferences");
  return simulator::debugDescription(application, queries.stages(application, screen), PROCESS);
}

std::size_t elementsOf(const Element& root) {
  std::size_t count = 1;
  forEachDescendant(root, [&count](const Element&) { ++count; });
  return count;
}

/// The time that it takes to load a page.
double compareWithPugixml(std::size_t elements, int runs) {
  const std::string page = settingsPage(elements);
  Times loading("loaded by us");
  Times parsing("parsed by pugixml");
  Times dumping("dump written by us");
  Times printing("printed by pugixml");
  std::size_t bytesOfDump = 0;
  // It writes to memory that it has already: what a text costs as it grows is not its own.
  TextWriter printed;
  printed.text.reserve(page.size());
  for (int run = 0; run < runs; ++run) {
    const auto screen = loading.take([&] { return simulator::readPageSource(page, benchmarks::SETTINGS_SCREEN); });
    const auto document = parsing.take([&] { return parsedByPugixml(page); });
    require(elementsOf(*screen) == elements, "not all of the page was loaded");
    bytesOfDump = dumping.take([&] { return dumpOf(*screen); }).size();
    printing.take([&] {
      printed.text.clear();
      document->save(printed, "  ");
      return true;
    });
    require(printed.text == page, "pugixml does not print what it read");
  }
  std::cout << "   " << elements << " elements, a page of " << page.size() << " bytes, a dump of " << bytesOfDump
            << '\n';
  for (const Times& times : {loading, parsing, dumping, printing}) {
    times.print();
  }
  showAtMost("loaded by us / parsed by pugixml", loading.median() / parsing.median(), GREATEST_LOAD_RATIO);
  showAtMost("dump written by us / printed by pugixml", dumping.median() / printing.median(), GREATEST_DUMP_RATIO);
  return loading.median();
}

class ListPhone final : public simulator::PhoneFiles {
 public:
  std::optional<std::string> read(const std::string& path) const override {
    if (path == "phone.json") {
      return R"({"name": "Phone", "size": {"width": 402, "height": 874}, "scale": 1, "systemVersion": "17.5",
                 "volume": 50, "home": "com.apple.springboard", "applications": ["home"]})";
    }
    if (path == "home/app.json") {
      return R"({"bundleIdentifier": "com.apple.springboard", "name": "Home", "firstScreen": "list"})";
    }
    return path == "home/list.xml" ? std::optional(settingsPage(LIST)) : std::nullopt;
  }
  std::string nameOf(const std::string& path) const override { return path; }
};

/// The search that scripts make most.
NSPredicate shows(const std::string& text) {
  std::vector<NSPredicate> alternatives;
  for (const std::string attribute : {"label", "identifier", "placeholderValue"}) {
    alternatives.emplace_back(attribute + " CONTAINS[c] %@ and enabled == %@",
                              std::initializer_list<NSPredicate::Argument>{text, true});
  }
  return NSCompoundPredicate::orPredicate(std::move(alternatives));
}

void measureList() {
  VirtualClock clock;
  simulator::SimulatedDriver driver(simulator::loadPhone(ListPhone()), clock);
  const XCUIApplication application("com.apple.springboard");
  const XCUIElement table = application.descendants(ElementType::table).firstMatch();
  const XCUIElementQuery cells = application.descendants(ElementType::cell);
  const XCUIElement lastCell = cells.elementBoundBy(driver.count(cells) - 1);

  Times swiping("a swipe");
  Times searching("a search after a swipe");
  Times dumping("a dump after a swipe");
  std::size_t swipes = 0;
  for (double before = 0; before != driver.frame(lastCell).origin.y; ++swipes) {
    before = driver.frame(lastCell).origin.y;
    swiping.takeOnce([&] {
      driver.swipe(table, SwipeDirection::up);
      return true;
    });
    const XCUIElementQuery query = application.descendants(ElementType::any).matching(shows("OF THIS PHONE"));
    require(searching.takeOnce([&] { return driver.count(query); }) > 0, "the search finds nothing");
    require(!dumping.takeOnce([&] { return driver.debugDescription(application); }).empty(), "the dump is empty");
  }
  require(driver.isHittable(lastCell), "the swipes do not end at the list's end");

  std::cout << "   A list of " << LIST << " elements\n";
  for (const Times& times : {swiping, searching, dumping}) {
    times.print();
  }
  showAtMost("the whole list in " + std::to_string(swipes) + " swipes, ms", swiping.sum(), NO_PAUSE);
  showAtMost("the longest swipe, ms", swiping.longest(), NO_PAUSE);
  showAtMost("the longest search, ms", searching.longest(), NO_PAUSE);
  showAtMost("the longest dump, ms", dumping.longest(), NO_PAUSE);
}

}  // namespace

int main() {
  std::cout << std::fixed << std::setprecision(2);
  const double time = compareWithPugixml(LONG_SCREEN, RUNS);
  const double timeOfTenfold = compareWithPugixml(10 * LONG_SCREEN, 7);
  showAtMost("loaded by us, 100,000 / 10,000 elements (linear: 10)", timeOfTenfold / time, GREATEST_GROWTH);
  measureList();
  return EXIT_SUCCESS;
}
