// What the WebDriver client adds to the exchange that it makes: a look-up by text through the driver, against the very
// same request through the HTTP library alone, both over a kept-alive connection to one served phone, in turn.

#include "drivers/simulator/PhoneFiles.h"
#include "drivers/simulator/PhoneLoader.h"
#include "drivers/webdriver/CurlTransport.h"
#include "drivers/webdriver/WebDriverDriver.h"
#include "phoneserver/PhoneServer.h"
#include "platform/foundation/VirtualClock.h"
#include "platform/uiautomation/XCUIApplication.h"

#include <curl/curl.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <functional>
#include <iomanip>
#include <iostream>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace {

using namespace quobrak;
using Microseconds = std::chrono::duration<double, std::micro>;

constexpr int RUNS = 2001;
constexpr double MOST = 1.10;

/// Shows what the driver sends.
class ShownTransport final : public webdriver::Transport {
 public:
  ShownTransport(std::unique_ptr<Transport> transport, webdriver::HttpRequest& last)
      : transport_(std::move(transport)), last_(last) {}

  webdriver::HttpReply exchange(const webdriver::HttpRequest& request) override {
    last_ = request;
    return transport_->exchange(request);
  }

 private:
  std::unique_ptr<Transport> transport_;
  webdriver::HttpRequest& last_;
};

std::size_t keep(char* bytes, std::size_t, std::size_t count, void* destination) {
  static_cast<std::string*>(destination)->append(bytes, count);
  return count;
}

/// The HTTP library with nothing around it.
class BareExchange {
 public:
  BareExchange(const std::string& url, const webdriver::HttpRequest& request) : body_(request.body) {
    headers_ = ::curl_slist_append(nullptr, "Content-Type: application/json; charset=utf-8");
    ::curl_easy_setopt(handle_, CURLOPT_URL, (url + request.path).c_str());
    ::curl_easy_setopt(handle_, CURLOPT_HTTPHEADER, headers_);
    ::curl_easy_setopt(handle_, CURLOPT_POSTFIELDS, body_.c_str());
    ::curl_easy_setopt(handle_, CURLOPT_WRITEFUNCTION, &keep);
    ::curl_easy_setopt(handle_, CURLOPT_WRITEDATA, &reply_);
  }
  ~BareExchange() {
    ::curl_easy_cleanup(handle_);
    ::curl_slist_free_all(headers_);
  }
  BareExchange(const BareExchange&) = delete;
  BareExchange& operator=(const BareExchange&) = delete;

  bool exchange() {
    reply_.clear();
    return ::curl_easy_perform(handle_) == CURLE_OK && !reply_.empty();
  }

 private:
  CURL* handle_ = ::curl_easy_init();
  curl_slist* headers_ = nullptr;
  std::string body_;
  std::string reply_;
};

double timeOf(const std::function<bool()>& action) {
  const auto start = std::chrono::steady_clock::now();
  if (!action()) {
    std::cerr << "an exchange failed\n";
    std::exit(EXIT_FAILURE);
  }
  return Microseconds(std::chrono::steady_clock::now() - start).count();
}

double median(std::vector<double> times) {
  std::nth_element(times.begin(), times.begin() + RUNS / 2, times.end());
  return times[RUNS / 2];
}

/// A phone with one application, "com.example.list", whose screen is a list of that many rows of five elements.
class ListPhone final : public simulator::PhoneFiles {
 public:
  explicit ListPhone(int rows) : rows_(rows) {}

  std::optional<std::string> read(const std::string& path) const override {
    if (path == "phone.json") {
      return R"({"name": "Phone", "size": {"width": 390, "height": 844}, "scale": 1, "systemVersion": "17.5",
                 "volume": 50, "home": "com.apple.springboard", "applications": ["home", "list"]})";
    }
    if (path == "home/app.json") {
      return R"({"bundleIdentifier": "com.apple.springboard", "name": "Home", "firstScreen": "home"})";
    }
    if (path == "list/app.json") {
      return R"({"bundleIdentifier": "com.example.list", "name": "List", "firstScreen": "list"})";
    }
    if (path == "list/list.xml") {
      return screen();
    }
    return path == "home/home.xml" ? std::optional<std::string>("<XCUIElementTypeApplication/>") : std::nullopt;
  }
  std::string nameOf(const std::string& path) const override { return path; }

 private:
  std::string screen() const {
    std::string page = R"(<XCUIElementTypeApplication label="List" width="390" height="844">)"
                       R"(<XCUIElementTypeTable width="390" height="844">)";
    for (int row = 0; row < rows_; ++row) {
      const std::string number = std::to_string(row);
      page += R"(<XCUIElementTypeCell name="row.)" + number + R"("><XCUIElementTypeStaticText name="title.)" + number +
              R"(" label="Desk lamp with a shade of linen"/><XCUIElementTypeStaticText label="In stock, number )" +
              number + R"(."/><XCUIElementTypeStaticText label="$)" + number +
              R"(.00"/><XCUIElementTypeButton label="Add to the basket"/></XCUIElementTypeCell>)";
    }
    return page + "</XCUIElementTypeTable></XCUIElementTypeApplication>";
  }

  int rows_;
};

void measure(int rows) {
  VirtualClock clock;
  phoneserver::PhoneServer phone(simulator::loadPhone(ListPhone(rows)), clock);
  const webdriver::Server server{.url = phone.url(), .dialect = webdriver::Dialect::wda};
  webdriver::HttpRequest last;
  UIDriver::install(std::make_unique<webdriver::WebDriverDriver>(
      server,
      std::make_unique<ShownTransport>(std::make_unique<webdriver::CurlTransport>(server.url, server.limits.connect),
                                       last),
      clock));

  const XCUIApplication list("com.example.list");
  list.launch();
  const XCUIElement element =
      list.descendants(ElementType::any).elementMatching(NSPredicate("label CONTAINS[c] %@", {"NUMBER 7."}));
  const auto lookUp = [&element] {
    UIDriver::shared().forgetLookups();
    return element.exists();
  };
  lookUp();
  BareExchange bare(phone.url(), last);

  std::vector<double> ours;
  std::vector<double> theirs;
  for (int run = 0; run < RUNS; ++run) {
    theirs.push_back(timeOf([&bare] { return bare.exchange(); }));
    ours.push_back(timeOf(lookUp));
  }
  UIDriver::install(nullptr);

  const double ratio = median(ours) / median(theirs);
  constexpr int IN_A_ROW = 5;
  std::cout << std::fixed << std::setprecision(1) << "    a look-up among " << rows * IN_A_ROW
            << " elements through the driver: " << median(ours) << " µs, the same exchange bare: " << median(theirs)
            << " µs\n"
            << std::setprecision(3) << "  driver / bare exchange: " << ratio << "   (target: at most 1.1) "
            << (ratio <= MOST ? "met" : "NOT MET") << '\n';
}

}  // namespace

int main() {
  for (const int rows : {10, 60, 200}) {
    measure(rows);
  }
}
