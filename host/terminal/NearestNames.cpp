#include "host/terminal/NearestNames.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "platform/foundation/Unicode.h"

namespace quobrak::host {

namespace {

constexpr std::size_t MOST_NAMES = 3;
/// A shorter beginning fits too many names.
constexpr std::size_t SHORTEST_BEGINNING = 3;

/// The optimal string alignment distance, in bytes of the folded texts.
std::size_t distance(std::string_view left, std::string_view right) {
  std::vector<std::size_t> beforePrevious(right.size() + 1);
  std::vector<std::size_t> previous(right.size() + 1);
  std::vector<std::size_t> current(right.size() + 1);
  for (std::size_t j = 0; j <= right.size(); ++j) {
    previous[j] = j;
  }
  for (std::size_t i = 1; i <= left.size(); ++i) {
    current[0] = i;
    for (std::size_t j = 1; j <= right.size(); ++j) {
      const std::size_t replaced = previous[j - 1] + (left[i - 1] == right[j - 1] ? 0 : 1);
      current[j] = std::min({previous[j] + 1, current[j - 1] + 1, replaced});
      if (i > 1 && j > 1 && left[i - 1] == right[j - 2] && left[i - 2] == right[j - 1]) {
        current[j] = std::min(current[j], beforePrevious[j - 2] + 1);
      }
    }
    beforePrevious = std::exchange(previous, std::exchange(current, beforePrevious));
  }
  return previous.back();
}

/// One change in three characters still looks like a slip.
std::size_t mostChanges(std::string_view written) {
  return std::max<std::size_t>(1, written.size() / 3);
}

struct Candidate {
  std::string_view name;
  std::size_t changes = 0;
  bool isBegun = false;
};

/// Beside a name that is right but for its letter case no other one is meant, and beside a near one none that is much
/// farther. The candidates are in order.
void dropFartherOnes(std::vector<Candidate>& candidates) {
  const std::size_t least = candidates.empty() ? 0 : candidates.front().changes;
  std::erase_if(candidates, [least](const Candidate& candidate) {
    return candidate.changes > least && (least == 0 || (candidate.changes > least + 1 && !candidate.isBegun));
  });
}

}  // namespace

std::vector<std::string_view> nearestNames(std::string_view written, std::span<const std::string_view> names) {
  const std::string folded = caseFolded(trimmedBlanks(written)).text;
  std::vector<Candidate> candidates;
  for (const std::string_view name : names) {
    const std::string foldedName = caseFolded(name).text;
    const bool isBegun = folded.size() >= SHORTEST_BEGINNING && foldedName.starts_with(folded);
    // A longer text is that many changes away at least, and comparing long ones takes time.
    if (folded.size() > foldedName.size() + mostChanges(folded)) {
      continue;
    }
    const Candidate candidate{.name = name, .changes = distance(folded, foldedName), .isBegun = isBegun};
    if (candidate.changes <= mostChanges(folded) || candidate.isBegun) {
      candidates.push_back(candidate);
    }
  }
  std::stable_sort(candidates.begin(), candidates.end(),
                   [](const Candidate& left, const Candidate& right) { return left.changes < right.changes; });
  dropFartherOnes(candidates);
  std::vector<std::string_view> nearest(std::min(MOST_NAMES, candidates.size()));
  std::transform(candidates.begin(), candidates.begin() + static_cast<std::ptrdiff_t>(nearest.size()), nearest.begin(),
                 [](const Candidate& candidate) { return candidate.name; });
  return nearest;
}

std::string didYouMean(const std::vector<std::string_view>& names) {
  std::string text;
  for (std::size_t i = 0; i < names.size(); ++i) {
    const std::string_view separator = i == 0 ? "did you mean " : (i + 1 == names.size() ? " or " : ", ");
    text.append(separator).append(names[i]);
  }
  return text.empty() ? "" : text + "?";
}

}  // namespace quobrak::host
