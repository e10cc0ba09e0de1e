#include "tests/house/IncludeRule.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/house/SourceTree.h"

namespace quobrak::house {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(IncludeRule, AllowsWhatMayBeKnown) {
  struct Case {
    std::string path;
    std::string header;
  };
  for (const auto& [path, header] : {
           Case{"platform/foundation/Clock.cpp", "\"platform/foundation/Clock.h\""},
           Case{"platform/foundation/Clock.cpp", "<unistd.h>"},
           Case{"platform/foundation/icu/Unicode.cpp", "<unicode/uchar.h>"},
           Case{"platform/foundation/JSON.cpp", "<nlohmann/json.hpp>"},
           Case{"platform/uiautomation/Waiting.cpp", "\"platform/foundation/Clock.h\""},
           Case{"quobrakUITests/File.cpp", "\"platform/uiautomation/XCUIScreen.h\""},
           Case{"drivers/simulator/Canvas.h", "<cairo.h>"},
           Case{"drivers/simulator/TextFont.cpp", "<cairo-ft.h>"},
           Case{"drivers/simulator/TextFont.cpp", "FT_FREETYPE_H"},
           Case{"drivers/simulator/TextDirection.cpp", "<fribidi.h>"},
           Case{"drivers/simulator/TextShaping.cpp", "<hb.h>"},
           Case{"drivers/simulator/Phone.h", "\"platform/uiautomation/UIDriver.h\""},
           Case{"runner/TestProcess.cpp", "\"drivers/simulator/PhoneLoader.h\""},
           Case{"runner/TestProcess.cpp", "\"quobrakUITests/quobrakUITests.h\""},
           Case{"runner/TestProcess.cpp", "<csignal>"},
           Case{"drivers/xctest/XCTestDriver.mm", "<XCTest/XCTest.h>"},
           Case{"drivers/xctest/bundle/TestRun.cpp", "\"quobrakUITests/quobrakUITests.h\""},
           Case{"tests/drivers/xctest/standins/Framework.mm", "<Foundation/Foundation.h>"},
           Case{"manual/CommandManual.h", "\"quobrakUITests/CommandRow.h\""},
           Case{"tests/manual/CommandManualTest.cpp", "\"manual/CommandManual.h\""},
           Case{"tests/runner/TraceTest.cpp", "<gtest/gtest.h>"},
           Case{"tests/runner/TraceTest.cpp", "\"tests/support/TemporaryFolder.h\""},
           Case{"tests/fuzz/support/ReplayTest.cpp", "\"fuzz/support/Replay.h\""},
           Case{"fuzz/targets/script.cpp", "\"quobrakUITests/Find.h\""},
           Case{"fuzz/targets/phone.cpp", "\"tests/support/MemoryPhoneFiles.h\""},
       }) {
    EXPECT_THAT(includeViolations(path, "#include " + header + "\n"), IsEmpty());
  }
}

TEST(IncludeRule, FindsWhatMustNotBeKnown) {
  struct Case {
    std::string path;
    std::string header;
  };
  for (const auto& [path, header] : {
           Case{"platform/foundation/Clock.cpp", "\"platform/uiautomation/UIDriver.h\""},
           Case{"platform/foundation/Clock.cpp", "\"quobrakUITests/File.h\""},
           Case{"platform/foundation/Clock.cpp", "\"Clock.h\""},
           Case{"platform/foundation/Unicode.h", "<unicode/uchar.h>"},
           Case{"platform/foundation/JSON.h", "<nlohmann/json.hpp>"},
           Case{"platform/foundation/icu/Unicode.cpp", "<fribidi.h>"},
           Case{"tests/drivers/simulator/TextShapingTest.cpp", "<hb.h>"},
           Case{"platform/uiautomation/UIDriver.cpp", "\"drivers/simulator/SimulatedDriver.h\""},
           Case{"platform/uiautomation/UIDriver.cpp", "\"quobrakUITests/File.h\""},
           Case{"quobrakUITests/File.cpp", "\"drivers/simulator/Phone.h\""},
           Case{"quobrakUITests/File.cpp", "\"runner/Trace.h\""},
           Case{"quobrakUITests/File.cpp", "\"manual/CommandManual.h\""},
           Case{"manual/CommandManual.cpp", "\"platform/uiautomation/UIDriver.h\""},
           Case{"quobrakUITests/File.cpp", "<unicode/uchar.h>"},
           Case{"drivers/simulator/Phone.cpp", "\"quobrakUITests/File.h\""},
           Case{"drivers/simulator/Phone.cpp", "\"drivers/webdriver/Connection.h\""},
           Case{"drivers/webdriver/Connection.cpp", "\"drivers/simulator/Phone.h\""},
           Case{"drivers/xctest/XCTestDriver.mm", "\"quobrakUITests/quobrakUITests.h\""},
           Case{"drivers/xctest/XCTestDriver.mm", "\"drivers/simulator/Phone.h\""},
           Case{"drivers/simulator/Phone.cpp", "<Foundation/Foundation.h>"},
           Case{"runner/Trace.cpp", "<XCTest/XCTest.h>"},
           Case{"runner/Trace.cpp", "\"tests/support/TemporaryFolder.h\""},
           Case{"runner/Trace.cpp", "<nlohmann/json.hpp>"},
           Case{"runner/Trace.cpp", "<gtest/gtest.h>"},
           Case{"runner/Trace.cpp", "<curl/curl.h>"},
           Case{"runner/Trace.cpp", "<zlib.h>"},
           Case{"runner/Trace.cpp", "<platform/foundation/JSON.h>"},
           Case{"runner/Trace.cpp", "SOME_HEADER"},
           Case{"runner/Trace.cpp", "FT_FREETYPE_H"},
           Case{"fuzz/targets/script.cpp", "\"runner/Trace.h\""},
           Case{"fuzz/targets/phone.cpp", "\"tests/phoneserver/TestPhone.h\""},
           Case{"drivers/simulator/Phone.cpp", "\"fuzz/support/Require.h\""},
           Case{"elsewhere/Thing.cpp", "\"platform/foundation/Clock.h\""},
       }) {
    EXPECT_THAT(includeViolations(path, "#include " + header + "\n"), ElementsAre(path + " includes " + header));
  }
}

TEST(IncludeRule, ReadsEveryIncludeOfAFile) {
  EXPECT_THAT(
      includeViolations("quobrakUITests/File.cpp",
                        "#include <png.h>\n// #include <cairo.h>\n\n  # include  \"runner/Trace.h\" // why\n"
                        "#include <string>\n#include<cairo.h>\n#import <XCTest/XCTest.h>\n#include_next <objc/objc.h>"),
      ElementsAre("quobrakUITests/File.cpp includes <png.h>", "quobrakUITests/File.cpp includes \"runner/Trace.h\"",
                  "quobrakUITests/File.cpp includes <cairo.h>", "quobrakUITests/File.cpp includes <XCTest/XCTest.h>",
                  "quobrakUITests/File.cpp includes <objc/objc.h>"));
}

TEST(IncludeRule, HoldsInTheWholeHouse) {
  ASSERT_TRUE(ourSourceTree().contains("runner/main.cpp")) << "the sources were not found";
  for (const auto& [path, text] : ourSourceTree()) {
    EXPECT_THAT(includeViolations(path, text), IsEmpty());
  }
}

}  // namespace quobrak::house
