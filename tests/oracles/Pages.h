#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace quobrak::oracles {

/// A page source that the system and an oracle are compared on.
struct Page {
  /// Letters, digits and underscores.
  std::string name;
  std::string source;
};

/// For the names of tests.
std::ostream& operator<<(std::ostream& stream, const Page& page);

/// The pages that are made here: a long list, one in which all that captures differ in is together, and two in which
/// elements lie over each other.
std::vector<Page> ownPages();

/// The captures of real screens in the folder that QUOBRAK_PAGE_SOURCES names, in the order of their names. They belong
/// to those who made them, so they are not kept here; without the variable there are none.
std::vector<Page> capturedPages();

}  // namespace quobrak::oracles
