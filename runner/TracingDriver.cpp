#include "runner/TracingDriver.h"

#include <exception>
#include <string>

namespace quobrak {

void TracingDriver::around(std::string_view name, const std::function<std::string()>& target,
                           const std::function<void()>& primitive) {
  const Clock::TimePoint start = Clock::shared().now();
  const auto write = [&](const std::exception* error) {
    JSONValue::Object event{
        {"event", "driver"}, {"operation", name}, {"duration", inMilliseconds(Clock::shared().now() - start)}};
    if (const std::string words = target(); !words.empty()) {
      event.emplace("target", words);
    }
    if (error != nullptr) {
      event.emplace("error", error->what());
    }
    output_.write(std::move(event));
  };
  try {
    primitive();
  } catch (const std::exception& error) {
    write(&error);
    throw;
  }
  write(nullptr);
}

}  // namespace quobrak
