#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>

#include "drivers/simulator/DescriptionFile.h"
#include "drivers/simulator/PhoneDescription.h"
#include "drivers/simulator/PhoneFiles.h"
#include "drivers/simulator/RuleReader.h"

namespace quobrak::simulator {

/// What the description of an application says of the others of its phone. Each operation is told the place in `file`
/// where it does.
struct PhoneReferences {
  /// Checks that the phone has the application, now or later.
  std::function<void(DescriptionFile& file, const JSONReader& at, const std::string& bundleIdentifier)>
      requireApplication;
  /// Throws `DecodingError` where an application has the address already.
  std::function<void(DescriptionFile& file, const JSONReader& at, const std::string& address)> claimAddress;
};

/// Reads an application from its folder: app.json and the page sources that it names.
class ApplicationReader {
 public:
  /// All that is handed over must outlive the reader; `phone` tells the screen's size and the named values.
  ApplicationReader(const PhoneFiles& files, std::string folder, const PhoneDescription& phone,
                    DescriptionFaults& faults, const PhoneReferences& references);

  /// The application as far as it can be used; all faults are noted.
  ApplicationDescription read();

 private:
  using Pages = std::map<std::string, std::unique_ptr<Element>>;

  void readContent(const JSONReader& json);
  void readAddresses(const JSONReader& json);
  void readRules(const JSONReader& json);
  /// Loads the page of that name, once.
  void requirePage(const JSONReader& at, const std::string& name, Pages& pages);

  const PhoneFiles& files_;
  std::string folder_;
  const PhoneDescription& phone_;
  DescriptionFaults& faults_;
  const PhoneReferences& references_;
  DescriptionFile file_;
  /// Whether it has addresses, which may have faults.
  bool opensAddresses_ = false;
  ApplicationDescription application_;
};

}  // namespace quobrak::simulator
