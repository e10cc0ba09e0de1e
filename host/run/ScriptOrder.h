#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <random>
#include <vector>

namespace quobrak::host {

/// The orders in which the scripts run, one iteration after the other: as they were given or, with a seed, shuffled
/// anew for each. A seed gives the same orders on every machine.
class ScriptOrder {
 public:
  ScriptOrder(std::size_t count, std::optional<std::uint64_t> seed);

  /// The indices of the scripts, from 0, in the order of the next iteration.
  std::vector<std::size_t> next();

 private:
  /// Below `bound`, each number as likely as the others.
  std::uint64_t numberBelow(std::uint64_t bound);

  std::size_t count_;
  std::optional<std::mt19937_64> engine_;
};

}  // namespace quobrak::host
