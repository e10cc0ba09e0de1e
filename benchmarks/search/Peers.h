#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "benchmarks/search/Screen.h"

namespace quobrak::benchmarks {

/// Another way to search a screen, which it was given at its making.
class Peer {
 public:
  virtual ~Peer() = default;

  /// How many of the enabled elements there are whose label, identifier or placeholder contains the needle without
  /// regard to case, or matches the pattern. Both are ASCII, without quotation marks.
  virtual std::size_t count(const std::string& text) = 0;
};

/// Each text is folded by ICU for each search.
std::unique_ptr<Peer> foldingWithICU(const std::vector<ElementTexts>& elements);

/// Each text is matched by one matcher of ICU, for each search another one.
std::unique_ptr<Peer> matchingWithICU(const std::vector<ElementTexts>& elements);

/// XPath on the page source, with translate() for upper case.
std::unique_ptr<Peer> searchingWithPugixml(const std::string& pageSource);
std::unique_ptr<Peer> searchingWithLibxml2(const std::string& pageSource);

/// GNUstep's predicates on key-value coded objects.
std::unique_ptr<Peer> searchingWithGNUstep(const std::vector<ElementTexts>& elements);

}  // namespace quobrak::benchmarks
