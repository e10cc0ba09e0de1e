// How long a picture of the screen takes, drawn and encoded: by us, and drawn alike and encoded by cairo's PNG writer.
// Then how long a screenshot of the phone takes, and another one of the same screen.

#include "drivers/simulator/BuiltinFiles.h"
#include "drivers/simulator/PageSource.h"
#include "drivers/simulator/PhoneFiles.h"
#include "drivers/simulator/PhoneLoader.h"
#include "drivers/simulator/ScreenPainter.h"
#include "drivers/simulator/ScreenPainting.h"
#include "drivers/simulator/SimulatedDriver.h"
#include "platform/foundation/VirtualClock.h"

#include <cairo.h>

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstdlib>
#include <iomanip>
#include <iostream>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

namespace {

using quobrak::Data;
using quobrak::Size;
using quobrak::simulator::Element;
using Milliseconds = std::chrono::duration<double, std::milli>;

constexpr int RUNS = 31;
constexpr double GREATEST_RATIO = 0.5;
constexpr double LEAST_GAIN_WHERE_UNCHANGED = 100;
constexpr Size SCREEN{390, 844};
constexpr double SCALE = 3;
constexpr std::string_view PAGE = "com.example.shop/products.xml";

cairo_status_t append(void* data, const unsigned char* bytes, unsigned int count) {
  const auto* const start = reinterpret_cast<const std::byte*>(bytes);
  static_cast<Data*>(data)->insert(static_cast<Data*>(data)->end(), start, start + count);
  return CAIRO_STATUS_SUCCESS;
}

std::size_t bytesOfOurs(const Element& page) {
  const Element* const layers[] = {&page};
  const std::optional<Data> png = quobrak::simulator::ScreenPainter(SCREEN, SCALE).png(layers);
  return png ? png->size() : 0;
}

std::size_t bytesOfCairo(const Element& page) {
  const Element* const layers[] = {&page};
  const auto surface = quobrak::simulator::painting::paintedScreen(SCREEN, SCALE, layers, {});
  Data png;
  const bool isWritten =
      surface != nullptr && cairo_surface_write_to_png_stream(surface.get(), append, &png) == CAIRO_STATUS_SUCCESS;
  return isWritten ? png.size() : 0;
}

struct Measure {
  std::vector<double> times;
  std::size_t bytes = 0;

  template <class Make>
  void run(Make make) {
    const auto start = std::chrono::steady_clock::now();
    bytes = make();
    times.push_back(Milliseconds(std::chrono::steady_clock::now() - start).count());
  }

  double median() const {
    std::vector<double> sorted = times;
    std::sort(sorted.begin(), sorted.end());
    return sorted[sorted.size() / 2];
  }
};

void print(std::string_view name, const Measure& measure) {
  std::cout << "    " << name << ": " << measure.median() << " ms, " << measure.bytes << " bytes\n";
}

bool compareEncoders(const Element& page) {
  // The first picture loads the font, which is no part of either encoder.
  bytesOfOurs(page);
  Measure ours;
  Measure cairo;
  for (int run = 0; run < RUNS; ++run) {
    ours.run([&] { return bytesOfOurs(page); });
    cairo.run([&] { return bytesOfCairo(page); });
  }
  const double ratio = ours.median() / cairo.median();
  print("drawn and encoded by us", ours);
  print("drawn alike and encoded by cairo", cairo);
  std::cout << "  ours / cairo: " << ratio << "   (target: at most " << GREATEST_RATIO << ") "
            << (ratio <= GREATEST_RATIO ? "met" : "NOT MET") << '\n';
  return ours.bytes > 0 && cairo.bytes > 0;
}

bool compareWithUnchangedScreen() {
  quobrak::VirtualClock clock;
  quobrak::simulator::SimulatedDriver driver(quobrak::simulator::loadPhone(quobrak::simulator::BuiltinPhoneFiles()),
                                             clock);
  const auto take = [&] { return driver.screenshot().value_or(Data()).size(); };
  Measure changed;
  Measure unchanged;
  for (int run = 0; run < RUNS; ++run) {
    driver.pressButton(quobrak::XCUIDeviceButton::home);
    changed.run(take);
    unchanged.run(take);
  }
  const double gain = changed.median() / unchanged.median();
  print("screenshot after a change", changed);
  print("screenshot of the unchanged screen", unchanged);
  std::cout << "  changed / unchanged: " << gain << "   (target: at least " << LEAST_GAIN_WHERE_UNCHANGED << ") "
            << (gain >= LEAST_GAIN_WHERE_UNCHANGED ? "met" : "NOT MET") << '\n';
  return changed.bytes > 0 && changed.bytes == unchanged.bytes;
}

}  // namespace

int main() {
  const std::optional<std::string_view> source = quobrak::simulator::builtinPhoneFile(PAGE);
  if (!source) {
    std::cerr << "The built-in phone has no " << PAGE << ".\n";
    return EXIT_FAILURE;
  }
  const auto page = quobrak::simulator::readPageSource(*source, SCREEN);

  std::cout << std::fixed << std::setprecision(3);
  const bool isPainted = compareEncoders(*page) && compareWithUnchangedScreen();
  return isPainted ? EXIT_SUCCESS : EXIT_FAILURE;
}
