#include "tests/host/program/SampleProgram.h"

#include <CLI/CLI.hpp>
#include <memory>

#include "host/program/CommandLine.h"

namespace quobrak::host {

namespace {

struct Paint {
  std::vector<std::string> files;
  std::string format = "text";
  std::string out;
  int number = 1;
  std::string theme;
  std::vector<std::string> tags;
  bool isQuiet = false;
  bool isLoud = false;
  bool isSecret = false;
};

std::function<ExitStatus()> declarePaint(CLI::App& app) {
  const auto paint = std::make_shared<Paint>();
  app.add_option("FILE", paint->files, "What to paint")->required();
  app.add_option("--format", paint->format, "How to write it")
      ->check(CLI::IsMember({"text", "json"}))
      ->capture_default_str();
  app.add_option("-o,--out", paint->out,
                 "Where it goes; the folder is made where it is missing, with all that is above")
      ->type_name("FOLDER");
  app.add_option("--number", paint->number, "How many")->check(CLI::Range(1, 9));
  app.add_option("--theme", paint->theme, "In which colours")->group("Colours");
  app.add_option("--tag", paint->tags, "What to remember it by")->expected(1, 5);
  CLI::Option* const quiet = app.add_flag("-q,--quiet", paint->isQuiet, "Say nothing: not [even] a word");
  app.add_flag("--loud", paint->isLoud, "Say all")->excludes(quiet);
  app.add_flag("--secret", paint->isSecret, "Is told to nobody")->group("");
  return [paint] { return ExitStatus::success; };
}

std::function<ExitStatus()> declareShow(CLI::App& app) {
  const auto name = std::make_shared<std::string>();
  app.add_option("COMMAND", *name, "Which one");
  return [name] { return ExitStatus::success; };
}

}  // namespace

std::vector<Subcommand> sampleSubcommands() {
  return {{.name = "paint",
           .summary = "Paints what a file says",
           .description = "A picture is painted from the left to the right, and from the top to the bottom, as one "
                          "reads.\n\n  .dots - and\n  'quotes'\n\n.txt and \\ stay.",
           .examples = {{.line = "quobrak paint a.txt -o pictures", .purpose = "paints one file"},
                        {.line = "quobrak paint *.txt --quiet", .purpose = "paints all, without a word"}},
           .declare = declarePaint,
           .offeredValues = {{.option = "--theme", .values = {"dark", "light", "painter's"}}},
           .exitMeanings = {{.status = ExitStatus::success, .meaning = "All is painted"},
                            {.status = ExitStatus::badUse, .meaning = "The command line cannot be used"}}},
          {.name = "show",
           .summary = "Shows a command",
           .description = {},
           .examples = {{.line = "quobrak show pause", .purpose = "shows that one"}},
           .declare = declareShow,
           .offeredValues = {{.option = "COMMAND", .values = {"pause", "pressHome"}}},
           .exitMeanings = {}}};
}

const DeclaredProgram& sampleProgram() {
  static const std::vector<Subcommand> SUBCOMMANDS = sampleSubcommands();
  static const CommandLine COMMAND_LINE(SUBCOMMANDS);
  return COMMAND_LINE.program();
}

const DeclaredCommand& samplePaint() {
  return sampleProgram().subcommands.front();
}

}  // namespace quobrak::host
