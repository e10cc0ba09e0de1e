#include "host/run/ScriptOrder.h"

#include <numeric>
#include <utility>

namespace quobrak::host {

ScriptOrder::ScriptOrder(std::size_t count, std::optional<std::uint64_t> seed) : count_(count) {
  if (seed) {
    engine_.emplace(*seed);
  }
}

// The standard pins down the numbers of the engine, but neither std::shuffle nor its distributions: those differ from
// library to library.
std::vector<std::size_t> ScriptOrder::next() {
  std::vector<std::size_t> order(count_);
  std::iota(order.begin(), order.end(), std::size_t{0});
  if (engine_) {
    for (std::size_t remaining = count_; remaining > 1; --remaining) {
      std::swap(order[remaining - 1], order[numberBelow(remaining)]);
    }
  }
  return order;
}

std::uint64_t ScriptOrder::numberBelow(std::uint64_t bound) {
  // So many of the engine's numbers are one too many for each remainder to come equally often.
  const std::uint64_t excess = (0 - bound) % bound;
  std::uint64_t number = (*engine_)();
  while (number < excess) {
    number = (*engine_)();
  }
  return number % bound;
}

}  // namespace quobrak::host
