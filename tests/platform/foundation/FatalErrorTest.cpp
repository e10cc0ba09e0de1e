#include "platform/foundation/FatalError.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <iostream>
#include <sstream>

namespace quobrak {
namespace {

using testing::Eq;

// Hands on to standard error what was written to it, but not before it is flushed.
class HeldBack final : public std::stringbuf {
 public:
  int sync() override {
    std::fputs(str().c_str(), stderr);
    str("");
    return 0;
  }
};

TEST(FatalErrorDeathTest, TheMessageGoesToStandardError) {
  EXPECT_DEATH(fatalError("No “Anmelden”."), Eq("Fatal error: No “Anmelden”.\n"));
}

TEST(FatalErrorDeathTest, TheProcessAborts) {
  EXPECT_EXIT(fatalError("Enough."), testing::KilledBySignal(SIGABRT), Eq("Fatal error: Enough.\n"));
}

TEST(FatalErrorDeathTest, TheScriptLineIsNamed) {
  const ScriptLineNote note(12, "tap \"OK\"");
  EXPECT_DEATH(fatalError("Enough."), Eq("Fatal error: Enough. (line 12: tap \"OK\")\n"));
}

TEST(FatalErrorDeathTest, TheInnermostOfNestedNotesIsNamed) {
  const ScriptLineNote outer(3, "run login");
  const ScriptLineNote inner(8, "tap OK");
  EXPECT_DEATH(fatalError("Enough."), Eq("Fatal error: Enough. (line 8: tap OK)\n"));
}

TEST(FatalErrorDeathTest, AfterAnInnerNoteTheOuterOneIsNamed) {
  const ScriptLineNote outer(3, "run login");
  { const ScriptLineNote inner(8, "tap OK"); }
  EXPECT_DEATH(fatalError("Enough."), Eq("Fatal error: Enough. (line 3: run login)\n"));
}

TEST(FatalErrorDeathTest, AfterTheLastNoteNoLineIsNamed) {
  { const ScriptLineNote note(3, "run login"); }
  EXPECT_DEATH(fatalError("Enough."), Eq("Fatal error: Enough.\n"));
}

TEST(FatalErrorDeathTest, WhatWasPrintedBeforeIsNotLost) {
  const auto printThenStop = [] {
    HeldBack buffer;
    std::cout.rdbuf(&buffer);  // so that flushing the stream does not flush what C printed
    dup2(STDERR_FILENO, STDOUT_FILENO);
    std::printf("step 1, ");
    fatalError("Enough.");
  };
  EXPECT_DEATH(printThenStop(), Eq("step 1, Fatal error: Enough.\n"));
}

TEST(FatalErrorDeathTest, WhatWasStreamedBeforeIsNotLost) {
  const auto streamThenStop = [] {
    HeldBack buffer;
    std::cout.rdbuf(&buffer);
    std::cerr.tie(nullptr);  // so that writing the message does not flush what was streamed
    std::cout << "step 1, ";
    fatalError("Enough.");
  };
  EXPECT_DEATH(streamThenStop(), Eq("step 1, Fatal error: Enough.\n"));
}

}  // namespace
}  // namespace quobrak
