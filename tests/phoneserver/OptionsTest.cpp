#include "phoneserver/Options.h"

#include <gtest/gtest.h>

namespace quobrak::phoneserver {
namespace {

Options options(const std::vector<std::string>& arguments) {
  return std::get<Options>(readOptions(arguments));
}

std::string information(const std::vector<std::string>& arguments) {
  return std::get<Information>(readOptions(arguments)).text;
}

std::string errorOf(const std::vector<std::string>& arguments) {
  try {
    readOptions(arguments);
  } catch (const OptionsError& error) {
    return error.what();
  }
  return "nothing";
}

TEST(Options, AreTheBuiltInPhoneOnThisMachineWhereNothingIsTold) {
  const Options read = options({});
  EXPECT_EQ(read.host, "127.0.0.1");
  EXPECT_EQ(read.port, 8100);
  EXPECT_EQ(read.phone, std::nullopt);
  EXPECT_EQ(read.clock, ClockChoice::systemTime);
}

TEST(Options, AreRead) {
  const Options read = options({"--port", "0", "--host", "::1", "--phone", "a folder", "--clock=virtual"});
  EXPECT_EQ(read.host, "::1");
  EXPECT_EQ(read.port, 0);
  EXPECT_EQ(read.phone, "a folder");
  EXPECT_EQ(read.clock, ClockChoice::virtualTime);
}

TEST(Options, HelpAndVersionAreInformation) {
  EXPECT_NE(information({"--help"}).find("--port"), std::string::npos);
  EXPECT_EQ(information({"--version"}), "quobrakPhone " QUOBRAK_VERSION "\n");
}

struct Row {
  std::vector<std::string> arguments;
  const char* error;
};

TEST(Options, ThatCannotBeUsedAreRefused) {
  const Row ROWS[] = {
      {{"--port", "x"}, "--port: Value x not in range 0 to 65535"},
      {{"--port", "65536"}, "--port: Value 65536 not in range 0 to 65535"},
      {{"--port", "-1"}, "--port: Value -1 not in range 0 to 65535"},
      {{"--port"}, "--port: 1 required INT:INT in [0 - 65535] missing"},
      {{"--clock", "sun"}, "--clock: sun not in {system,virtual}"},
      {{"--colour"}, "The following argument was not expected: --colour"},
      {{"8100"}, "The following argument was not expected: 8100"},
  };
  for (const Row& row : ROWS) {
    EXPECT_EQ(errorOf(row.arguments), std::string(row.error) + "; quobrakPhone --help tells the options");
  }
}

}  // namespace
}  // namespace quobrak::phoneserver
