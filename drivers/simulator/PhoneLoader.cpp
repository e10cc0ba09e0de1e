#include "drivers/simulator/PhoneLoader.h"

#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "drivers/simulator/ApplicationReader.h"
#include "drivers/simulator/DescriptionFile.h"
#include "platform/foundation/JSON.h"

namespace quobrak::simulator {

namespace {

Size readSize(DescriptionFile& file, const JSONReader& json) {
  constexpr std::int64_t LARGEST = 4000;
  Size size{};
  file.requireKnownKeys(json, {"width", "height"});
  file.attempt([&] { size.width = static_cast<double>(integerBetween(json.member("width"), 1, LARGEST)); });
  file.attempt([&] { size.height = static_cast<double>(integerBetween(json.member("height"), 1, LARGEST)); });
  return size;
}

/// The folders of the applications that come with the program.
std::vector<std::string> builtinApplications(const PhoneFiles& builtinFiles) {
  const JSONValue phone = JSONDecoder::decode(builtinFiles.read("phone.json").value());
  std::vector<std::string> folders;
  for (const JSONReader& folder : JSONReader(phone).member("applications").elements()) {
    folders.push_back(folder.text());
  }
  return folders;
}

class PhoneReader {
 public:
  explicit PhoneReader(const PhoneFiles& files) : files_(files), file_(files, "phone.json", faults_) {}

  PhoneDescription read() {
    if (const std::optional<JSONReader> content = file_.content()) {
      file_.attempt([&] { readContent(*content); });
    }
    if (!faults_.isEmpty()) {
      throw PhoneDescriptionError(faults_.text());
    }
    return std::move(phone_);
  }

 private:
  void readContent(const JSONReader& json) {
    constexpr std::int64_t LARGEST_SCALE = 4;
    constexpr std::int64_t FULL = 100;
    file_.requireKnownKeys(json, {"$schema", "name", "size", "scale", "systemVersion", "volume", "delays", "values",
                                  "home", "applications"});
    file_.attempt([&] { requireTextIfAny(json, "$schema"); });
    file_.attempt([&] { phone_.name = nonEmptyText(json.member("name")); });
    file_.attempt([&] { phone_.size = readSize(file_, json.member("size")); });
    file_.attempt([&] { phone_.scale = static_cast<double>(integerBetween(json.member("scale"), 1, LARGEST_SCALE)); });
    file_.attempt([&] { phone_.systemVersion = nonEmptyText(json.member("systemVersion")); });
    file_.attempt([&] { phone_.volume = static_cast<int>(integerBetween(json.member("volume"), 0, FULL)); });
    file_.attempt([&] { readDelays(json); });
    file_.attempt([&] {
      if (const auto values = json.optionalMember("values")) {
        readValues(*values);
      }
    });
    file_.attempt([&] { readApplications(json.member("applications")); });
    file_.attempt([&] {
      const JSONReader home = json.member("home");
      phone_.home = home.text();
      requireApplication(file_, home, phone_.home);
    });
    checkReferences();
  }

  void readDelays(const JSONReader& json) {
    const auto delays = json.optionalMember("delays");
    if (!delays) {
      return;
    }
    file_.requireKnownKeys(*delays, {"touch", "button", "scroll"});
    const auto read = [&](std::string_view name, std::chrono::milliseconds& delay) {
      file_.attempt([&] {
        if (const auto named = delays->optionalMember(name)) {
          delay = readDuration(*named);
        }
      });
    };
    read("touch", phone_.touchDelay);
    read("button", phone_.buttonDelay);
    read("scroll", phone_.scrollDelay);
  }

  void readValues(const JSONReader& json) {
    for (const auto& [name, text] : readNamedTexts(file_, json)) {
      phone_.values.set(name, text);
    }
  }

  void readApplications(const JSONReader& json) {
    areAllKnown_ = !json.elements().empty();
    for (const JSONReader& entry : json.elements()) {
      bool isKnown = false;
      file_.attempt([&] { isKnown = readApplication(entry); });
      areAllKnown_ = areAllKnown_ && isKnown;
    }
    if (json.elements().empty()) {
      json.fail("must hold the application that shows the home screen");
    }
  }

  /// Whether it has told its bundle identifier.
  bool readApplication(const JSONReader& entry) {
    constexpr std::string_view BUILT_IN = "built-in:";
    std::string folder = nonEmptyText(entry);
    const bool isBuiltIn = folder.starts_with(BUILT_IN);
    folder.erase(0, isBuiltIn ? BUILT_IN.size() : 0);
    const PhoneFiles& files = isBuiltIn ? builtinFiles_ : files_;
    if (!files.read(folder + "/app.json")) {
      entry.fail("there is no application \"" + folder + "\"" +
                 (isBuiltIn ? " that comes with the program; there are " + listed(builtinApplications(builtinFiles_))
                            : ": " + files.nameOf(folder + "/app.json") + " is missing or cannot be read"));
    }
    ApplicationDescription application =
        readers_.emplace_back(files, std::move(folder), phone_, faults_, phoneReferences_).read();
    const std::string bundleIdentifier = application.bundleIdentifier;
    if (!bundleIdentifier.empty() && !phone_.applications.emplace(bundleIdentifier, std::move(application)).second) {
      file_.note(entry, "another application has the bundle identifier \"" + bundleIdentifier + "\" too");
    }
    return !bundleIdentifier.empty();
  }

  void claimAddress(const DescriptionFile& file, const JSONReader& at, const std::string& address) {
    const auto [claimed, isNew] = addresses_.emplace(address, file.name());
    if (!isNew) {
      at.fail("\"" + address + "\" stands in " + claimed->second +
              " already; an address opens one application, and stands there once");
    }
  }

  void requireApplication(DescriptionFile& file, const JSONReader& at, const std::string& bundleIdentifier) {
    // Whatever is wrong with an application that cannot be read is told already.
    if (!areAllKnown_ || phone_.applications.contains(bundleIdentifier)) {
      return;
    }
    std::vector<std::string> known;
    for (const auto& [identifier, application] : phone_.applications) {
      known.push_back(identifier);
    }
    file.note(at, "no application has the bundle identifier \"" + bundleIdentifier + "\"; there are " + listed(known));
  }

  /// Rules may name applications that are read later.
  void checkReferences() {
    for (const auto& check : references_) {
      check();
    }
  }

  const PhoneFiles& files_;
  BuiltinPhoneFiles builtinFiles_;
  DescriptionFaults faults_;
  DescriptionFile file_;
  PhoneDescription phone_;
  const PhoneReferences phoneReferences_{
      .requireApplication =
          [this](DescriptionFile& file, const JSONReader& at, const std::string& bundleIdentifier) {
            references_.emplace_back([=, this, &file] { requireApplication(file, at, bundleIdentifier); });
          },
      .claimAddress = [this](DescriptionFile& file, const JSONReader& at,
                             const std::string& address) { claimAddress(file, at, address); }};
  /// They hold the documents that the references point into.
  std::deque<ApplicationReader> readers_;
  std::vector<std::function<void()>> references_;
  /// And the files that they stand in.
  std::map<std::string, std::string> addresses_;
  /// Whether every application has told its bundle identifier.
  bool areAllKnown_ = false;
};

}  // namespace

PhoneDescription loadPhone(const PhoneFiles& files) {
  return PhoneReader(files).read();
}

}  // namespace quobrak::simulator
