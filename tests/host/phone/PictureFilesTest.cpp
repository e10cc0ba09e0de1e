#include "host/phone/PictureFiles.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>

#include "drivers/simulator/PhoneLoader.h"
#include "host/Subcommand.h"
#include "tests/host/phone/LookedAtPhone.h"
#include "tests/support/TemporaryFolder.h"

namespace quobrak::host {
namespace {

namespace fs = std::filesystem;
using quobrak::testing::TemporaryFolder;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::StartsWith;
using ::testing::ThrowsMessage;

constexpr std::string_view SIGNATURE("\x89PNG\r\n\x1a\n", 8);

Data picture(std::string_view rest) {
  const std::string bytes = std::string(SIGNATURE).append(rest);
  const auto* const begin = reinterpret_cast<const std::byte*>(bytes.data());
  return {begin, begin + bytes.size()};
}

std::string content(std::string_view rest) {
  return std::string(SIGNATURE).append(rest);
}

TEST(PictureFiles, APictureIsWrittenAsItIs) {
  const TemporaryFolder folder;
  writePicture(picture("one"), folder.path() / "a.png");
  EXPECT_EQ(folder.read("a.png"), content("one"));
  EXPECT_THAT(folder.files(), ElementsAre("a.png"));
}

TEST(PictureFiles, AnotherPictureIsReplaced) {
  const TemporaryFolder folder;
  folder.write("a.png", content("one, and longer"));
  writePicture(picture("two"), folder.path() / "a.png");
  EXPECT_EQ(folder.read("a.png"), content("two"));
}

TEST(PictureFiles, WhatIsNoPictureIsLeftAlone) {
  const TemporaryFolder folder;
  for (const std::string& text : {std::string("{\"name\": 1}"), std::string(), std::string("\x89PNG")}) {
    folder.write("phone.json", text);
    const std::string file = (folder.path() / "phone.json").string();
    EXPECT_THAT([&file] { writePicture(picture("one"), file); },
                ThrowsMessage<EnvironmentError>("the picture " + file +
                                                " cannot be written: there is something of that name already that is "
                                                "no picture in PNG; name another file, or take it away"));
    EXPECT_EQ(folder.read("phone.json"), text);
  }
}

TEST(PictureFiles, AFolderAndALinkThatLeadsNowhereAreLeftAloneToo) {
  const TemporaryFolder folder;
  fs::create_directory(folder.path() / "a.png");
  EXPECT_THROW(writePicture(picture("one"), folder.path() / "a.png"), EnvironmentError);
  fs::create_symlink(folder.path() / "nowhere", folder.path() / "b.png");
  EXPECT_THROW(writePicture(picture("one"), folder.path() / "b.png"), EnvironmentError);
  EXPECT_FALSE(fs::exists(folder.path() / "nowhere"));
}

TEST(PictureFiles, WhereItCannotBeWrittenTheErrorSaysWhy) {
  const TemporaryFolder folder;
  const std::string file = (folder.path() / "none/a.png").string();
  EXPECT_THAT([&file] { writePicture(picture("one"), file); },
              ThrowsMessage<EnvironmentError>(StartsWith("the picture " + file + " cannot be written: ")));
  EXPECT_THAT([] { writePicture(std::nullopt, "a.png"); },
              ThrowsMessage<EnvironmentError>(
                  "the picture a.png cannot be written: no picture can be made of a screen of that size"));
}

TEST(PictureFiles, AllScreensAreDrawnIntoFoldersOfTheirApplications) {
  const TemporaryFolder folder;
  const simulator::PhoneDescription phone = simulator::loadPhone(quobrak::testing::lookedAtPhone());
  const fs::path pictures = folder.path() / "new/pictures";
  EXPECT_THAT(writePictures(phone, {"com.apple.springboard", "com.example.test"}, pictures),
              ElementsAre(pictures / "com.apple.springboard/home.png", pictures / "com.example.test/other.png",
                          pictures / "com.example.test/start.png"));
  EXPECT_THAT(folder.files(),
              ElementsAre("new/pictures/com.apple.springboard/home.png", "new/pictures/com.example.test/other.png",
                          "new/pictures/com.example.test/start.png"));
  EXPECT_THAT(folder.read("new/pictures/com.example.test/start.png"), StartsWith(SIGNATURE));
}

TEST(PictureFiles, AFolderThatCannotBeMadeIsAnError) {
  const TemporaryFolder folder;
  folder.write("file", "");
  const simulator::PhoneDescription phone = simulator::loadPhone(quobrak::testing::lookedAtPhone());
  EXPECT_THAT([&] { writePictures(phone, {"com.example.test"}, folder.path() / "file"); },
              ThrowsMessage<EnvironmentError>(HasSubstr("/file/com.example.test cannot be made: ")));
}

TEST(PictureFiles, NamesLeadToNoOtherFolder) {
  for (const auto& [name, fileName] :
       {std::pair{"com.example.shop", "com.example.shop"}, std::pair{"a b-é", "a b-é"}, std::pair{"..", "%2E."},
        std::pair{"../../etc", "%2E.%2F..%2Fetc"}, std::pair{".hidden", "%2Ehidden"}, std::pair{"a/b", "a%2Fb"},
        std::pair{"a%2Fb", "a%252Fb"}, std::pair{"a\nb", "a%0Ab"}}) {
    EXPECT_EQ(fileNameOf(name), fileName);
  }
}

}  // namespace
}  // namespace quobrak::host
