#pragma once

#include <string>

#include "tests/support/MemoryPhoneFiles.h"

namespace quobrak::testing {

/// What differs from one phone with a store to another.
struct StorePhone {
  /// Whether Settings clears the browser's history as older systems do.
  bool isOlder = false;
  /// On newer systems: the value of the switch that closes all tabs.
  std::string closeAllTabs = "0";
  /// On older systems: whether Settings asks what to do with the tabs.
  bool asksAboutTabs = true;
  /// Whether the browser leads to the App Store, rather than to a page.
  bool hasAppStoreLink = false;
  /// The label of the App Store's button beside the product.
  std::string productButton = "GET";
};

/// A small phone (see `smallPhone`) with Settings, in which one has to scroll, the browser, and the App Store, each as
/// small as can be. The App Store downloads until its picture in the upper left corner is touched.
MemoryPhoneFiles filesOf(const StorePhone& phone);

}  // namespace quobrak::testing
