// How long a picture of the screen takes, drawn and encoded: by us, and drawn alike and encoded by cairo's PNG writer.

#include "drivers/simulator/BuiltinFiles.h"
#include "drivers/simulator/PageSource.h"
#include "drivers/simulator/ScreenPainter.h"
#include "drivers/simulator/ScreenPainting.h"

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
  const auto surface = quobrak::simulator::painting::paintedScreen(SCREEN, SCALE, layers);
  Data png;
  const bool isWritten =
      surface != nullptr && cairo_surface_write_to_png_stream(surface.get(), append, &png) == CAIRO_STATUS_SUCCESS;
  return isWritten ? png.size() : 0;
}

struct Measure {
  std::vector<double> times;
  std::size_t bytes = 0;

  void run(std::size_t (*make)(const Element&), const Element& page) {
    const auto start = std::chrono::steady_clock::now();
    bytes = make(page);
    times.push_back(Milliseconds(std::chrono::steady_clock::now() - start).count());
  }

  double median() const {
    std::vector<double> sorted = times;
    std::sort(sorted.begin(), sorted.end());
    return sorted[sorted.size() / 2];
  }
};

void print(std::string_view name, const Measure& measure) {
  std::cout << name << ": " << measure.median() << " ms, " << measure.bytes << " bytes\n";
}

}  // namespace

int main() {
  const std::optional<std::string_view> source = quobrak::simulator::builtinPhoneFile(PAGE);
  if (!source) {
    std::cerr << "The built-in phone has no " << PAGE << ".\n";
    return EXIT_FAILURE;
  }
  const auto page = quobrak::simulator::readPageSource(*source, SCREEN);

  // The first picture loads the font, which is no part of either encoder.
  bytesOfOurs(*page);
  Measure ours;
  Measure cairo;
  for (int run = 0; run < RUNS; ++run) {
    ours.run(bytesOfOurs, *page);
    cairo.run(bytesOfCairo, *page);
  }
  const double ratio = ours.median() / cairo.median();
  std::cout << std::fixed << std::setprecision(2);
  print("screenshot, drawn and encoded by us", ours);
  print("screenshot, drawn alike and encoded by cairo", cairo);
  std::cout << "screenshot ratio: " << ratio << " (target: at most " << GREATEST_RATIO << ", "
            << (ratio <= GREATEST_RATIO ? "met" : "missed") << ")\n";
  return ours.bytes > 0 && cairo.bytes > 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}
