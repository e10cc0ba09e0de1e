#include "tests/host/process/HostRun.h"

#include <algorithm>
#include <iterator>

#include "tests/support/MemoryPhoneFiles.h"

namespace quobrak::testing {

namespace fs = std::filesystem;

HostRun::HostRun() {
  const MemoryPhoneFiles files = smallPhone("");
  for (const char* path : {"phone.json", "home/app.json", "home/home.xml", "test/app.json", "test/start.xml"}) {
    phone.write(path, files.read(path).value());
  }
  start.executable = QUOBRAK_PROGRAM;
  start.workingDirectory = folder.path();
  start.environment = {{"PATH", "/usr/bin:/bin"}};
}

ProcessEnd HostRun::run(std::vector<std::string> arguments) const {
  ProcessStart complete = start;
  complete.arguments = {"run", "--quiet", "--clock", "virtual", "--phone", phone.path().string(), "--out", "out"};
  std::move(arguments.begin(), arguments.end(), std::back_inserter(complete.arguments));
  return runExecutable(complete);
}

std::string HostRun::testProcess(const std::string& shellScript) const {
  folder.write("test-process", "#!/bin/sh\n" + shellScript);
  fs::permissions(folder.path() / "test-process", fs::perms(0755));
  return (folder.path() / "test-process").string();
}

std::vector<std::string> HostRun::realTestProcess() {
  return {"--no-check", "--var", "REAL=" QUOBRAK_UI_TESTS};
}

JSONValue HostRun::results() const {
  return JSONDecoder::decode(folder.read("out/results.json"));
}

std::vector<std::string> textsOf(const JSONReader& array, std::string_view member) {
  const std::vector<JSONReader> elements = array.elements();
  std::vector<std::string> texts;
  std::transform(elements.begin(), elements.end(), std::back_inserter(texts),
                 [member](const JSONReader& element) { return element.member(member).text(); });
  return texts;
}

}  // namespace quobrak::testing
