#include "phoneserver/Options.h"

#include <CLI/CLI.hpp>
#include <algorithm>

namespace quobrak::phoneserver {

namespace {

constexpr const char* VERSION = "quobrakPhone " QUOBRAK_VERSION;
constexpr int LARGEST_PORT = 65535;

}  // namespace

std::variant<Options, Information> readOptions(std::vector<std::string> arguments) {
  Options options;
  std::string clock = "system";
  CLI::App app("Serves a simulated phone to WebDriver clients.", "quobrakPhone");
  app.set_version_flag("--version", VERSION, "Print the version and end");
  app.add_option("--port", options.port, "The port to listen on; 0 for any that is free")
      ->check(CLI::Range(0, LARGEST_PORT))
      ->capture_default_str();
  app.add_option("--host", options.host, "The address to listen on. Who can reach it can use the phone")
      ->capture_default_str();
  app.add_option("--phone", options.phone, "The folder that describes the phone; the built-in phone without it");
  app.add_option("--clock", clock, "system, or virtual: time then passes only for what the phone does")
      ->check(CLI::IsMember({"system", "virtual"}))
      ->capture_default_str();
  try {
    // The library takes them from the end.
    std::reverse(arguments.begin(), arguments.end());
    app.parse(std::move(arguments));
  } catch (const CLI::CallForHelp&) {
    return Information{app.help()};
  } catch (const CLI::CallForVersion&) {
    return Information{std::string(VERSION) + "\n"};
  } catch (const CLI::ParseError& error) {
    throw OptionsError(std::string(error.what()) + "; quobrakPhone --help tells the options");
  }
  options.clock = clock == "virtual" ? ClockChoice::virtualTime : ClockChoice::systemTime;
  return options;
}

}  // namespace quobrak::phoneserver
