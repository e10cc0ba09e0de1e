#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <optional>
#include <regex>
#include <string>

#include "drivers/simulator/PhoneLoader.h"
#include "platform/foundation/JSON.h"
#include "tests/support/MemoryPhoneFiles.h"

/// The documents that check-schemas gives to the schemas, given to the loader: both must judge alike.
namespace quobrak::simulator {
namespace {

namespace fs = std::filesystem;
using quobrak::testing::MemoryPhoneFiles;
using quobrak::testing::smallPhone;
using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::StartsWith;

constexpr const char* PHONE_FILE = "phone.json";
constexpr const char* APPLICATION_FILE = "test/app.json";

bool isPhone(const std::string& name) {
  return name.starts_with("phone-");
}

std::string contentOf(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

/// The documents of a folder, by the names of their files without the ending.
std::map<std::string, std::string> documentsIn(const std::string& folder) {
  std::map<std::string, std::string> documents;
  for (const fs::directory_entry& entry : fs::directory_iterator(fs::path(QUOBRAK_SCHEMA_CASES) / folder)) {
    documents.emplace(entry.path().stem().string(), contentOf(entry.path()));
  }
  return documents;
}

void addApplication(MemoryPhoneFiles& files, const std::string& folder, const std::string& bundleIdentifier) {
  const std::string address = "https://" + folder + ".example/";
  files[folder + "/app.json"] = R"({"name": "An application", "firstScreen": "start", "bundleIdentifier": ")" +
                                bundleIdentifier + R"(", "addresses": [")" + address + R"("]})";
  files[folder + "/start.xml"] = files["test/start.xml"];
}

/// A phone around an application, with the screens, applications and values that the documents name.
MemoryPhoneFiles phoneAroundApplication(const std::string& document) {
  MemoryPhoneFiles files = smallPhone("");
  files[PHONE_FILE] =
      R"({"name": "Small phone", "size": {"width": 100, "height": 200}, "scale": 1, "systemVersion": "17.5",
          "volume": 50, "home": "com.apple.springboard", "applications": ["home", "test", "other"],
          "values": {"wait": "400", "tick": "250", "quick": "9", "long": "3600001", "past": "-1", "empty": "",
                     "word": "soon"}})";
  files[APPLICATION_FILE] = document;
  for (const char* const screen : {"list", "product", "basket", "toast"}) {
    files[std::string("test/") + screen + ".xml"] = files["test/start.xml"];
  }
  addApplication(files, "other", "com.example.other");
  return files;
}

/// A phone with the folders that the documents name.
MemoryPhoneFiles phoneOf(const std::string& document) {
  MemoryPhoneFiles files = smallPhone("");
  files[PHONE_FILE] = document;
  addApplication(files, "shop", "com.example.shop");
  addApplication(files, "shop-again", "com.example.shop");
  return files;
}

/// Why the loader refuses the document; nothing where it does not.
std::optional<std::string> faultOf(const std::string& name, const std::string& document) {
  try {
    loadPhone(isPhone(name) ? phoneOf(document) : phoneAroundApplication(document));
  } catch (const PhoneDescriptionError& error) {
    return error.what();
  }
  return std::nullopt;
}

/// Faults are told as "file:line:column: place: reason".
std::string withoutNumbers(const std::string& fault) {
  static const std::regex LINE_AND_COLUMN(":[0-9]+:[0-9]+: ");
  return std::regex_replace(fault, LINE_AND_COLUMN, ": ");
}

TEST(SchemaCases, WhatTheSchemasAcceptIsLoaded) {
  const auto documents = documentsIn("good");
  ASSERT_THAT(documents, Not(IsEmpty()));
  for (const auto& [name, document] : documents) {
    EXPECT_EQ(faultOf(name, document), std::nullopt) << name;
  }
}

TEST(SchemaCases, WhatTheSchemasRefuseIsRefusedForTheSameFault) {
  const auto documents = documentsIn("bad");
  ASSERT_THAT(documents, Not(IsEmpty()));
  const JSONValue places = JSONDecoder::decode(contentOf(fs::path(QUOBRAK_SCHEMA_CASES) / "places.json"));
  for (const auto& [name, document] : documents) {
    const std::string file = isPhone(name) ? PHONE_FILE : APPLICATION_FILE;
    const std::string place = JSONReader(places).member(name).text();
    EXPECT_THAT(withoutNumbers(faultOf(name, document).value_or("no fault")),
                AllOf(StartsWith(file + ": " + (place.empty() ? "" : place + ": ")), Not(HasSubstr("\n"))))
        << name;
  }
}

TEST(SchemaCases, WhatOnlyAPhoneCanRefuseIsRefused) {
  const auto documents = documentsIn("bad-for-the-phone");
  ASSERT_THAT(documents, Not(IsEmpty()));
  for (const auto& [name, document] : documents) {
    EXPECT_NE(faultOf(name, document), std::nullopt) << name;
  }
}

}  // namespace
}  // namespace quobrak::simulator
