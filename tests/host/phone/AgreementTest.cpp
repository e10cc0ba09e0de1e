#include <gtest/gtest.h>

#include <array>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "drivers/simulator/PhoneLoader.h"
#include "drivers/simulator/SimulatedDriver.h"
#include "host/phone/PictureFiles.h"
#include "host/phone/Selector.h"
#include "host/phone/ShownScreen.h"
#include "platform/foundation/JSON.h"
#include "quobrakUITests/CommandDispatch.h"
#include "quobrakUITests/CommandTable.h"
#include "quobrakUITests/FWKTError.h"
#include "quobrakUITests/Find.h"
#include "tests/support/TestPlatform.h"

/// What is shown of screens is what the commands of scripts meet there.
namespace quobrak::host {
namespace {

using quobrak::testing::TestPlatform;
using simulator::Element;

/// A phone's files in which one application begins with a screen and has no rules.
class WithFirstScreen final : public simulator::PhoneFiles {
 public:
  WithFirstScreen(const simulator::PhoneFiles& files, const std::string& application, const std::string& screen)
      : files_(files), path_(application + "/app.json") {
    JSONValue document = JSONDecoder::decode(files.read(path_).value());
    JSONValue::Object members = std::get<JSONValue::Object>(std::move(document).variant());
    members.erase("rules");
    members.insert_or_assign("firstScreen", screen);
    changed_ = JSONEncoder::encode(members);
  }

  std::optional<std::string> read(const std::string& path) const override {
    return path == path_ ? changed_ : files_.read(path);
  }
  std::string nameOf(const std::string& path) const override { return files_.nameOf(path); }

 private:
  const simulator::PhoneFiles& files_;
  std::string path_;
  std::string changed_;
};

using Phones = std::map<std::string, std::unique_ptr<simulator::PhoneFiles>>;

Phones phones() {
  Phones all;
  all["built-in"] = std::make_unique<simulator::BuiltinPhoneFiles>();
  for (const char* const name : {"languages", "market", "motion"}) {
    all[name] =
        std::make_unique<simulator::FolderPhoneFiles>(std::string(QUOBRAK_SOURCE_FOLDER "/examples/phones/") + name);
  }
  return all;
}

const std::array SELECTORS{
    Selector{.kind = SelectorKind::text, .text = "e"},
    Selector{.kind = SelectorKind::text, .text = "o", .isEnabled = false},
    Selector{.kind = SelectorKind::text, .text = "S"},
    Selector{.kind = SelectorKind::textExact, .text = "[A-Z].*"},
    Selector{.kind = SelectorKind::textExact, .text = ".*t", .isEnabled = false},
    Selector{.kind = SelectorKind::label, .text = "a"},
    Selector{.kind = SelectorKind::labelExact, .text = "(?i)b.*"},
    Selector{.kind = SelectorKind::field, .text = "ta"},
    Selector{.kind = SelectorKind::fieldExact, .text = "[a-z]+"},
    Selector{.kind = SelectorKind::className, .text = "Button"},
    Selector{.kind = SelectorKind::className, .text = "StaticText", .isEnabled = false},
    Selector{.kind = SelectorKind::text, .text = "no such text"},
};

bool goesThrough(const std::vector<std::string>& fields) {
  const std::vector<std::string_view> views(fields.begin(), fields.end());
  try {
    dispatchCommand(commandTable(), views);
    return true;
  } catch (const FWKTError&) {
    return false;
  }
}

/// How a script looks for the match of that rank.
std::vector<std::string> searchFor(const Selector& selector, std::size_t rank) {
  static const std::map<SelectorKind, std::string> SEARCHES{{SelectorKind::text, "findByText"},
                                                            {SelectorKind::textExact, "findByTextExact"},
                                                            {SelectorKind::className, "findByClass"}};
  return {SEARCHES.at(selector.kind), selector.text, std::to_string(rank), selector.isEnabled ? "true" : "false"};
}

std::vector<std::string> waitFor(const Selector& selector, const std::string& what) {
  static const std::map<SelectorKind, std::string> ATTRIBUTES{{SelectorKind::label, "Text"},
                                                              {SelectorKind::labelExact, "TextExact"},
                                                              {SelectorKind::field, "AccessibilityField"},
                                                              {SelectorKind::fieldExact, "AccessibilityFieldExact"}};
  return {what + ATTRIBUTES.at(selector.kind), selector.text, "0"};
}

/// Compares each match with what the search for its rank finds, and that there is no other one.
void expectSearchesToAgree(const Selector& selector, const std::vector<const Element*>& matches,
                           const ShownScreen& screen) {
  for (std::size_t i = 0; i < matches.size(); ++i) {
    ASSERT_TRUE(goesThrough(searchFor(selector, i + 1))) << written(selector) << ", " << i + 1;
    const XCUIElement found = Find::lastElementFound.value();
    EXPECT_EQ(found.label(), matches[i]->label);
    EXPECT_EQ(found.identifier(), matches[i]->identifier);
    EXPECT_EQ(found.frame(), matches[i]->frame);
    EXPECT_EQ(found.isHittable(), screen.isHittable(*matches[i])) << written(selector) << ", " << i + 1;
  }
  EXPECT_FALSE(goesThrough(searchFor(selector, matches.size() + 1))) << written(selector);
}

void expectWaitsToAgree(const Selector& selector, const std::vector<const Element*>& matches) {
  EXPECT_EQ(goesThrough(waitFor(selector, "waitUntil")), !matches.empty()) << written(selector);
  EXPECT_EQ(goesThrough(waitFor(selector, "waitUntilGone")), matches.empty()) << written(selector);
}

/// `files` are those of a phone whose application shows, when it has started, what `screen` shows. The number of
/// matches that were compared.
std::size_t expectAgreement(const simulator::PhoneFiles& files, ShownScreen& screen) {
  const TestPlatform platform(files);
  EXPECT_TRUE(goesThrough({"applicationStart", screen.identifier()}));
  std::size_t count = 0;
  for (const Selector& selector : SELECTORS) {
    const std::vector<const Element*> matches = screen.elements(queryOf(selector, screen.identifier()));
    if (asksForState(selector.kind)) {
      expectSearchesToAgree(selector, matches, screen);
    } else {
      expectWaitsToAgree(selector, matches);
    }
    count += matches.size();
  }
  EXPECT_EQ(screen.picture({}), UIDriver::shared().screenshot());
  return count;
}

TEST(Agreement, OfScreensAfterTheStartOfAnApplication) {
  std::size_t compared = 0;
  for (const auto& [name, files] : phones()) {
    for (const auto& [identifier, application] : simulator::loadPhone(*files).applications) {
      SCOPED_TRACE(name + ", " + identifier);
      ShownScreen screen(simulator::loadPhone(*files), identifier, std::nullopt);
      compared += expectAgreement(*files, screen);
    }
  }
  EXPECT_GT(compared, 300U);
}

TEST(Agreement, OfEachScreenAsItsFileHasIt) {
  std::size_t compared = 0;
  for (const auto& [name, files] : phones()) {
    for (const auto& [identifier, application] : simulator::loadPhone(*files).applications) {
      for (const auto& [screenName, root] : application.screens) {
        SCOPED_TRACE(name + ", " + identifier + ", " + screenName);
        ShownScreen screen(simulator::loadPhone(*files), identifier, screenName);
        compared += expectAgreement(WithFirstScreen(*files, identifier, screenName), screen);
      }
    }
  }
  EXPECT_GT(compared, 1000U);
}

TEST(Agreement, OfPicturesOfAllScreensWithScreenshots) {
  std::size_t compared = 0;
  for (const auto& [name, files] : phones()) {
    const quobrak::testing::TemporaryFolder folder;
    const simulator::PhoneDescription phone = simulator::loadPhone(*files);
    for (const auto& [identifier, application] : phone.applications) {
      writePictures(phone, {identifier}, folder.path());
      for (const auto& [screenName, root] : application.screens) {
        const TestPlatform platform{WithFirstScreen(*files, identifier, screenName)};
        UIDriver::shared().launch(identifier);
        const Data screenshot = UIDriver::shared().screenshot().value();
        const std::string picture = folder.read(identifier + "/" + screenName + ".png");
        EXPECT_EQ(picture, std::string(reinterpret_cast<const char*>(screenshot.data()), screenshot.size()))
            << name << ", " << identifier << ", " << screenName;
        ++compared;
      }
    }
  }
  EXPECT_GT(compared, 40U);
}

}  // namespace
}  // namespace quobrak::host
