// How long the served phone works on a client's search for an element by a part of its text, on a screen of a thousand
// elements: from the request to the reply, without the network.

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <iomanip>
#include <iostream>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "drivers/simulator/PhoneFiles.h"
#include "drivers/simulator/PhoneLoader.h"
#include "phoneserver/RequestHandler.h"
#include "phoneserver/ServedPhone.h"
#include "platform/foundation/VirtualClock.h"

namespace {

using namespace quobrak;
using Milliseconds = std::chrono::duration<double, std::milli>;

constexpr int RUNS = 301;
constexpr int ELEMENTS = 1000;
constexpr double BUDGET = 1;

/// A long list: rows of a cell with a title, a subtitle, a price and a button. A seventh of the titles is not ASCII.
std::string listPage() {
  constexpr std::string_view TITLES[] = {
      "Desk lamp with a shade of linen", "Armchair, oak and wool", "Bücherregal aus Kiefernholz", "Round mirror, 60 cm",
      "Stool for the kitchen",           "Rug, woven by hand",     "Vase of recycled glass"};
  std::string page = R"(<XCUIElementTypeApplication name="Shop" label="Shop" width="390" height="844">)"
                     R"(<XCUIElementTypeTable width="390" height="844">)";
  constexpr int IN_A_ROW = 5;
  constexpr int ROWS = ELEMENTS / IN_A_ROW;
  for (int row = 0; row < ROWS; ++row) {
    const std::string number = std::to_string(row);
    const std::string title(TITLES[static_cast<std::size_t>(row) % std::size(TITLES)]);
    page += R"(<XCUIElementTypeCell name="row.)" + number + R"(">)" + R"(<XCUIElementTypeStaticText name="title.)" +
            number + R"(" label=")" + title + R"("/><XCUIElementTypeStaticText label="In stock near you, number )" +
            number + R"("/><XCUIElementTypeStaticText label="$)" + number +
            R"(.00"/><XCUIElementTypeButton name="buy.)" + number + R"(" label="Add )" + title +
            R"( to the basket"/></XCUIElementTypeCell>)";
  }
  return page + "</XCUIElementTypeTable></XCUIElementTypeApplication>";
}

class ListPhone final : public simulator::PhoneFiles {
 public:
  std::optional<std::string> read(const std::string& path) const override {
    if (path == "phone.json") {
      return R"({"name": "Phone", "size": {"width": 390, "height": 844}, "scale": 1, "systemVersion": "17.5",
                 "volume": 50, "home": "com.apple.springboard", "applications": ["home"]})";
    }
    if (path == "home/app.json") {
      return R"({"bundleIdentifier": "com.apple.springboard", "name": "Home", "firstScreen": "list"})";
    }
    return path == "home/list.xml" ? std::optional(listPage()) : std::nullopt;
  }
  std::string nameOf(const std::string& path) const override { return path; }
};

/// As a client asks for whatever shows a text that may be touched.
phoneserver::Request searchFor(const std::string& session, const std::string& text) {
  return {.method = "POST",
          .path = "/session/" + session + "/elements",
          .body = R"({"using":"class chain","value":"**/XCUIElementTypeAny[`(label CONTAINS[c] ')" + text +
                  R"(' OR name CONTAINS[c] ')" + text + R"(' OR placeholderValue CONTAINS[c] ')" + text +
                  R"(') AND enabled == 1`]"})"};
}

double medianTime(phoneserver::ServedPhone& served, const phoneserver::Request& request) {
  std::vector<double> times;
  for (int run = 0; run < RUNS; ++run) {
    const auto start = std::chrono::steady_clock::now();
    phoneserver::answer(served, request);
    times.push_back(Milliseconds(std::chrono::steady_clock::now() - start).count());
  }
  std::sort(times.begin(), times.end());
  return times[times.size() / 2];
}

std::size_t found(const std::string& body) {
  std::size_t count = 0;
  constexpr std::string_view KEY = "\"ELEMENT\"";
  for (auto place = body.find(KEY); place != std::string::npos; place = body.find(KEY, place + 1)) {
    ++count;
  }
  return count;
}

struct Search {
  const char* text;
  std::size_t matches;
};

bool measure(phoneserver::ServedPhone& served, const Search& search) {
  const phoneserver::Request request = searchFor(served.session()->id, search.text);
  const phoneserver::Reply reply = phoneserver::answer(served, request);
  if (found(reply.body) != search.matches) {
    std::cerr << "The search for \"" << search.text << "\" found " << found(reply.body) << " elements: " << reply.body
              << '\n';
    return false;
  }
  const double time = medianTime(served, request);
  std::cout << "    search for \"" << search.text << "\", " << search.matches << " of " << ELEMENTS << ": " << time
            << " ms\n  time / budget of " << BUDGET << " ms: " << time / BUDGET << "   (target: at most 1) "
            << (time <= BUDGET ? "met" : "NOT MET") << '\n';
  return true;
}

}  // namespace

int main() {
  VirtualClock clock;
  phoneserver::ServedPhone served(simulator::loadPhone(ListPhone()), clock);
  phoneserver::answer(served, {.method = "POST", .path = "/session", .body = R"({"capabilities": {}})"});

  std::cout << std::fixed << std::setprecision(3);
  constexpr Search SEARCHES[] = {{"NOTHING OF THIS", 0}, {"number 199", 1}, {"kiefernholz", 58}};
  bool isRight = true;
  for (const Search& search : SEARCHES) {
    isRight = measure(served, search) && isRight;
  }
  return isRight ? EXIT_SUCCESS : EXIT_FAILURE;
}
