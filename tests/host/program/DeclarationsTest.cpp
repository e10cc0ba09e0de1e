#include "host/program/Declarations.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <CLI/CLI.hpp>

#include "tests/host/program/SampleProgram.h"

namespace quobrak::host {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

std::vector<std::string> linesOf(const std::vector<DeclaredOption>& options) {
  std::vector<std::string> lines;
  for (const DeclaredOption& option : options) {
    lines.push_back(option.names.empty() ? option.valueName : option.names.back());
  }
  return lines;
}

const DeclaredOption& named(std::string_view name) {
  return *optionNamed(samplePaint(), name);
}

/// An option of a value, declared as `declare` says.
DeclaredOption declaredBy(const std::function<void(CLI::Option&)>& declare, const std::string& name = "--value") {
  CLI::App app;
  std::string value;
  declare(*app.add_option(name, value, "What it is"));
  const DeclaredCommand command = declaredCommand(app, {}, "quobrak");
  return command.arguments.empty() ? command.options.front() : command.arguments.front();
}

TEST(Declarations, HoldWhatASubcommandSaysOfItself) {
  const DeclaredCommand& paint = samplePaint();
  EXPECT_EQ(paint.line, "quobrak paint");
  EXPECT_EQ(paint.name, "paint");
  EXPECT_EQ(paint.summary, "Paints what a file says");
  EXPECT_EQ(paint.examples.size(), 2U);
  EXPECT_EQ(paint.exitMeanings.size(), 2U);
}

TEST(Declarations, HoldOptionsInTheirOrderWithHelpAtTheEndAndNoHiddenOne) {
  EXPECT_THAT(linesOf(samplePaint().options),
              ElementsAre("--format", "--out", "--number", "--theme", "--tag", "--quiet", "--loud", "--help"));
  EXPECT_THAT(linesOf(samplePaint().arguments), ElementsAre("FILE"));
}

TEST(Declarations, OfAFlag) {
  const DeclaredOption& quiet = named("--quiet");
  EXPECT_THAT(quiet.names, ElementsAre("-q", "--quiet"));
  EXPECT_EQ(quiet.kind, ValueKind::none);
  EXPECT_EQ(quiet.valueName, "");
  EXPECT_EQ(quiet.group, "Options");
  EXPECT_FALSE(quiet.isRequired);
}

TEST(Declarations, OfAnArgument) {
  const DeclaredOption& file = named("FILE");
  EXPECT_THAT(file.names, IsEmpty());
  EXPECT_EQ(file.kind, ValueKind::file);
  EXPECT_TRUE(file.isRequired);
  EXPECT_TRUE(file.repeats);
}

TEST(Declarations, OfAFixedSetOfValues) {
  const DeclaredOption& format = named("--format");
  EXPECT_EQ(format.kind, ValueKind::name);
  EXPECT_THAT(format.values, ElementsAre("text", "json"));
  EXPECT_EQ(format.valueName, "text|json");
  EXPECT_EQ(format.preset, "text");
  EXPECT_FALSE(format.repeats);
}

TEST(Declarations, OfValuesThatAreOffered) {
  const DeclaredOption& theme = named("--theme");
  EXPECT_EQ(theme.kind, ValueKind::name);
  EXPECT_THAT(theme.values, ElementsAre("dark", "light", "painter's"));
  EXPECT_EQ(theme.valueName, "TEXT");
  EXPECT_EQ(theme.group, "Colours");
  EXPECT_THAT(optionNamed(sampleProgram().subcommands.at(1), "COMMAND")->values, ElementsAre("pause", "pressHome"));
}

TEST(Declarations, TellWhatAValueIsByItsCheckOrElseByItsName) {
  EXPECT_EQ(declaredBy([](CLI::Option& o) { o.check(CLI::ExistingFile); }).kind, ValueKind::file);
  EXPECT_EQ(declaredBy([](CLI::Option& o) { o.check(CLI::ExistingDirectory); }).kind, ValueKind::folder);
  EXPECT_EQ(declaredBy([](CLI::Option& o) { o.check(CLI::ExistingPath); }).kind, ValueKind::path);
  EXPECT_EQ(declaredBy([](CLI::Option& o) { o.check(CLI::NonexistentPath); }).kind, ValueKind::path);
  EXPECT_EQ(declaredBy([](CLI::Option& o) { o.type_name("FOLDER"); }).kind, ValueKind::folder);
  EXPECT_EQ(declaredBy([](CLI::Option& o) { o.type_name("SCRIPT")->check(CLI::ExistingFile); }).kind, ValueKind::file);
  EXPECT_EQ(declaredBy([](CLI::Option&) {}).kind, ValueKind::anything);
  EXPECT_EQ(declaredBy([](CLI::Option&) {}, "SCRIPT").kind, ValueKind::path);
  EXPECT_EQ(declaredBy([](CLI::Option&) {}, "NAME").kind, ValueKind::anything);
}

TEST(Declarations, NameValuesInOurWords) {
  EXPECT_EQ(declaredBy([](CLI::Option& o) { o.check(CLI::ExistingFile); }).valueName, "FILE");
  EXPECT_EQ(declaredBy([](CLI::Option& o) { o.check(CLI::ExistingDirectory); }).valueName, "FOLDER");
  EXPECT_EQ(declaredBy([](CLI::Option& o) { o.check(CLI::ExistingPath); }).valueName, "PATH");
  EXPECT_EQ(declaredBy([](CLI::Option& o) { o.type_name("ROAD")->check(CLI::ExistingPath); }).valueName, "ROAD");
  EXPECT_EQ(declaredBy([](CLI::Option& o) {
              o.check(CLI::IsMember({"twelve", "characters", "each"}));
            }).valueName,
            "twelve|characters|each");
  EXPECT_EQ(declaredBy([](CLI::Option& o) {
              o.check(CLI::IsMember({"twelve", "characters", "and more"}));
            }).valueName,
            "NAME");
  EXPECT_EQ(named("--number").valueName, "NUMBER");
}

TEST(Declarations, HoldOptionsOfGroupsOfOptions) {
  CLI::App app;
  app.add_option_group("Both")->add_flag("--together");
  EXPECT_THAT(linesOf(declaredCommand(app, {}, "quobrak").options), ElementsAre("--together", "--help"));
}

TEST(Declarations, FindWhatIsNamed) {
  EXPECT_EQ(optionNamed(samplePaint(), "-q"), optionNamed(samplePaint(), "--quiet"));
  EXPECT_EQ(optionNamed(samplePaint(), "--unknown"), nullptr);
  EXPECT_EQ(subcommandNamed(sampleProgram(), "paint"), &samplePaint());
  EXPECT_EQ(subcommandNamed(sampleProgram(), "pain"), nullptr);
}

}  // namespace
}  // namespace quobrak::host
