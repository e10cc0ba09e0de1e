// What the WebDriver client adds to the exchange that it makes: a look-up by text through the driver, against the very
// same request through the HTTP library alone, both over a kept-alive connection to one served phone, in turn.

#include "drivers/simulator/BuiltinFiles.h"
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

}  // namespace

int main() {
  VirtualClock clock;
  phoneserver::PhoneServer phone(simulator::loadPhone(simulator::BuiltinPhoneFiles()), clock);
  const webdriver::Server server{.url = phone.url(), .dialect = webdriver::Dialect::wda};
  webdriver::HttpRequest last;
  UIDriver::install(std::make_unique<webdriver::WebDriverDriver>(
      server,
      std::make_unique<ShownTransport>(std::make_unique<webdriver::CurlTransport>(server.url, server.limits.connect),
                                       last),
      clock));

  const XCUIApplication shop("com.example.shop");
  shop.launch();
  const XCUIElement element =
      shop.descendants(ElementType::any).elementMatching(NSPredicate("label CONTAINS[c] %@", {"browse"}));
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
  std::cout << std::fixed << std::setprecision(1) << "    a look-up through the driver: " << median(ours)
            << " µs, the same exchange bare: " << median(theirs) << " µs\n"
            << std::setprecision(3) << "  driver / bare exchange: " << ratio << "   (target: at most 1.1) "
            << (ratio <= MOST ? "met" : "NOT MET") << '\n';
  return EXIT_SUCCESS;
}
