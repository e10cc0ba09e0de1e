#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "platform/uiautomation/XCUIElementQuery.h"

namespace quobrak::webdriver {

/// The steps of a query as one class chain, which a server evaluates from the query's root on. Throws `UnaskableQuery`.
std::string classChain(const XCUIElementQuery& query);

/// Knows the chain of the query that was asked for last: a command asks one query several times.
class LastClassChain {
 public:
  /// As `classChain`.
  const std::string& of(const XCUIElementQuery& query);

 private:
  std::vector<QueryStep> steps_;
  std::string chain_;
};

/// The chain that finds the picked element alone. `chain` must end in no pick.
std::string pickedFrom(const std::string& chain, const ElementPick& pick);

/// The number of the picked element among those that a query finds, from 0.
std::size_t indexOf(const ElementPick& pick);

}  // namespace quobrak::webdriver
