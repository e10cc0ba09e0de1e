#include "tests/host/program/ShellRun.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <sstream>

namespace quobrak::host {

std::string printedBy(const std::string& line) {
  std::FILE* const output = ::popen(("exec 2>&1; " + line).c_str(), "re");
  EXPECT_NE(output, nullptr);
  std::string text;
  std::array<char, 4096> part{};
  for (std::size_t size = 0; (size = std::fread(part.data(), 1, part.size(), output)) > 0;) {
    text.append(part.data(), size);
  }
  EXPECT_EQ(::pclose(output), 0) << line << "\n" << text;
  return text;
}

std::vector<std::string> sortedLines(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) {
    lines.push_back(line);
  }
  std::sort(lines.begin(), lines.end());
  return lines;
}

void needsProgram(const std::string& program) {
  if (std::system(("command -v " + program + " >/dev/null").c_str()) != 0) {
    std::cout << "skipped: " << program << " is not installed" << std::endl;
    constexpr int SKIPPED = 77;
    std::exit(SKIPPED);
  }
}

}  // namespace quobrak::host
