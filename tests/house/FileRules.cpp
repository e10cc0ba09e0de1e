#include "tests/house/FileRules.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace quobrak::house {

namespace {

struct Exception {
  std::string_view source;
  std::string_view reason;
};

constexpr std::array EXCEPTIONS{
    Exception{"phoneserver/main.cpp",
              "a main function cannot be linked to a test; tests/process starts the executable"},
    Exception{"manual/main.cpp",
              "a main function cannot be linked to a test; CommandManualTest compares what it writes"},
    Exception{"manual/ApplicationNotes.cpp", "texts; CommandNotesTest looks at all notes"},
    Exception{"manual/ElementNotes.cpp", "texts; CommandNotesTest looks at all notes"},
    Exception{"manual/RunNotes.cpp", "texts; CommandNotesTest looks at all notes"},
    Exception{"manual/TouchNotes.cpp", "texts; CommandNotesTest looks at all notes"},
    Exception{"host/main.cpp", "a main function cannot be linked to a test; tests/process starts the executable"},
    Exception{"host/pictures/main.cpp",
              "a main function cannot be linked to a test; PicturesTest compares what it writes"},
    Exception{"host/pages.cpp", "a main function cannot be linked to a test; InstallTest looks at what it writes"},
    Exception{"runner/main.cpp", "a main function cannot be linked to a test; tests/process starts the executable"},
    Exception{"drivers/simulator/BarArt.cpp", "drawing; ScreenPainterTest looks at the picture"},
    Exception{"drivers/simulator/ContainerArt.cpp", "drawing; ScreenPainterTest looks at the picture"},
    Exception{"drivers/simulator/ControlArt.cpp", "drawing; ScreenPainterTest looks at the picture"},
    Exception{"drivers/simulator/ElementArt.cpp", "drawing; ScreenPainterTest looks at the picture"},
    Exception{"drivers/simulator/MarkArt.cpp", "drawing; ScreenPainterTest looks at the picture"},
    Exception{"drivers/simulator/PictureArt.cpp", "drawing; ScreenPainterTest looks at the picture"},
    Exception{"drivers/simulator/TextArt.cpp", "drawing; ScreenPainterTest looks at the picture"},
    Exception{"drivers/simulator/Canvas.cpp", "drawing; ScreenPainterTest looks at the picture"},
    Exception{"drivers/simulator/ScreenPainting.cpp", "drawing; ScreenPainterTest looks at the picture"},
    Exception{"drivers/simulator/TextFont.cpp",
              "the font that TextLayoutTest measures with and ScreenPainterTest sees"},
    Exception{"drivers/xctest/ElementAttributes.mm", "a part of the driver; XCTestDriverTest sees what it asks"},
    Exception{"drivers/xctest/Lookup.mm", "a part of the driver; XCTestDriverTest sees what it asks"},
    Exception{"drivers/xctest/Operation.mm", "a part of the driver; XCTestDriverTest sees what it raises"},
    Exception{"drivers/xctest/Predicates.mm", "a part of the driver; XCTestDriverTest sees what they find"},
    Exception{"drivers/xctest/QuobrakTestCase.mm", "a part of the driver; XCTestDriverTest sees what it keeps"},
    Exception{"drivers/xctest/Texts.mm", "a part of the driver; all that XCTestDriverTest reads goes through it"},
    Exception{"drivers/xctest/foundation/PlatformText.mm",
              "NSRegularExpressionTest and UnicodeTest find their way back through it"},
};

constexpr std::array PROGRAM_FOLDERS{"platform/", "quobrakUITests/", "drivers/", "phoneserver/",
                                     "runner/",   "manual/",         "host/"};

bool isOfAProgram(const std::string& path) {
  return std::any_of(PROGRAM_FOLDERS.begin(), PROGRAM_FOLDERS.end(),
                     [&path](const char* folder) { return path.starts_with(folder); });
}

bool isException(const std::string& path) {
  return std::any_of(EXCEPTIONS.begin(), EXCEPTIONS.end(),
                     [&path](const Exception& exception) { return exception.source == path; });
}

std::string testOf(const std::string& source) {
  // What stands between a header and the library that it hides is tested as what the header promises.
  constexpr std::string_view WRAPPER = "platform/foundation/icu/";
  const std::string unit =
      source.starts_with(WRAPPER) ? "platform/foundation/" + source.substr(WRAPPER.size()) : source;
  return "tests/" + unit.substr(0, unit.rfind('.')) + "Test.cpp";
}

}  // namespace

std::vector<std::string> headersWithoutPragmaOnce(const SourceTree& tree) {
  std::vector<std::string> headers = filesEndingIn(tree, ".h");
  std::erase_if(headers, [&tree](const std::string& path) { return tree.at(path).starts_with("#pragma once\n"); });
  return headers;
}

std::vector<std::string> sourcesWithoutTest(const SourceTree& tree) {
  std::vector<std::string> sources = sourcesOf(tree);
  std::erase_if(sources, [&tree](const std::string& path) {
    return !isOfAProgram(path) || isException(path) || tree.contains(testOf(path));
  });
  return sources;
}

std::vector<std::string> idleExceptions(const SourceTree& tree) {
  std::vector<std::string> idle;
  for (const Exception& exception : EXCEPTIONS) {
    if (const std::string source(exception.source); !tree.contains(source) || tree.contains(testOf(source))) {
      idle.push_back(source);
    }
  }
  return idle;
}

}  // namespace quobrak::house
