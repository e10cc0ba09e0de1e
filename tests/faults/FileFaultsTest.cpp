#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>

#include <algorithm>
#include <csignal>
#include <functional>
#include <new>
#include <optional>
#include <regex>
#include <stdexcept>

#include "platform/foundation/FileManager.h"
#include "tests/faults/Expectation.h"
#include "tests/faults/ThreeScripts.h"

namespace quobrak::faults {

namespace {

using ::testing::IsEmpty;

/// A class of calls of the file manager, and what becomes of the run when one of them fails.
struct FileCallClass {
  std::string operation;
  /// A regular expression for the whole path.
  std::string path;
  Phase phase;
  Consequence afterError;
  /// Where the operation is a question, and is answered no because the disk cannot be asked.
  std::optional<Consequence> withoutAnswer;
};

const std::vector<FileCallClass> CLASSES{
    {"readText", "scripts/.*", Phase::beforeScripts, Consequence::runIsRefused, {}},
    {"fileExists", "tests-results|measures|testsStatus[.]json", Phase::beforeScripts, Consequence::clearingEnds,
     Consequence::isNotCleared},
    {"removeItem", "tests-results|measures|testsStatus[.]json", Phase::beforeScripts, Consequence::clearingEnds, {}},

    {"fileExists", ".*/screenshots", Phase::inLine, Consequence::scriptFails, Consequence::nothing},
    {"createDirectory", ".*/screenshots", Phase::inLine, Consequence::scriptFails, {}},
    {"write", ".*/screenshots/.*_start[.]png", Phase::inLine, Consequence::scriptFails, {}},
    {"write", ".*/screenshots/.*_stop[.]png", Phase::inLine, Consequence::scriptFails, {}},

    {"fileExists", ".*/screenshots", Phase::atEndOfScript, Consequence::pictureOrDumpIsMissing, Consequence::nothing},
    {"createDirectory", ".*/screenshots", Phase::atEndOfScript, Consequence::pictureOrDumpIsMissing, {}},
    {"write",
     ".*/screenshots/.*_(success|failed)[.]png",
     Phase::atEndOfScript,
     Consequence::pictureOrDumpIsMissing,
     {}},
    {"fileExists", ".*/dump", Phase::atEndOfScript, Consequence::pictureOrDumpIsMissing, Consequence::nothing},
    {"createDirectory", ".*/dump", Phase::atEndOfScript, Consequence::pictureOrDumpIsMissing, {}},
    {"write", ".*/dump/dump[.]txt", Phase::atEndOfScript, Consequence::pictureOrDumpIsMissing, {}},

    {"fileExists", "measures", Phase::afterScripts, Consequence::resultsEnd, Consequence::nothing},
    {"createDirectory", "measures", Phase::afterScripts, Consequence::resultsEnd, {}},
    {"write", "measures/.*", Phase::afterScripts, Consequence::resultsEnd, {}},
    // The folder of the status file is the Documents directory itself.
    {"fileExists", "", Phase::afterScripts, Consequence::resultsEnd, Consequence::nothing},
    {"createDirectory", "", Phase::afterScripts, Consequence::resultsEnd, {}},
    {"write", "testsStatus[.]json", Phase::afterScripts, Consequence::resultsEnd, {}},
};

bool isOf(const FileCallClass& kind, const Call& call) {
  return call.name == kind.operation && call.phase == kind.phase &&
         std::regex_match(call.target, std::regex(kind.path));
}

const FileCallClass& classOf(const Call& call) {
  const auto found =
      std::find_if(CLASSES.begin(), CLASSES.end(), [&call](const FileCallClass& kind) { return isOf(kind, call); });
  if (found == CLASSES.end()) {
    throw std::logic_error("a call of no class: " + call.name + " " + call.target);
  }
  return *found;
}

constexpr const char* IS_GONE = "The volume “Data” is gone.";

/// In what words a run tells of an error of the file manager at the call.
Failure platformError(const Call& call, const std::string& message) {
  return {
      .reason = call.name == "readText" ? "The file " + call.target + " is missing in the document directory" : message,
      .traced = "documentDirectoryError: " + message};
}

/// As long as it lives no file may grow beyond its first byte, so that a write ends short of its end.
class ShortFiles {
 public:
  ShortFiles() {
    std::signal(SIGXFSZ, SIG_IGN);
    ::getrlimit(RLIMIT_FSIZE, &before_);
    const rlimit limit{.rlim_cur = 1, .rlim_max = before_.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &limit);
  }
  ~ShortFiles() { ::setrlimit(RLIMIT_FSIZE, &before_); }
  ShortFiles(const ShortFiles&) = delete;
  ShortFiles& operator=(const ShortFiles&) = delete;

 private:
  rlimit before_{};
};

/// Runs of the suite in one iteration, each with another fault.
class FaultyRuns {
 protected:
  explicit FaultyRuns(int iteration) : suite(threeScripts(iteration)), undisturbed(SuiteRun::of(suite).outcome) {}

  /// Runs the suite with something else in place of one call.
  void expectAfter(const Call& call, const std::function<void(const std::function<void()>& carryOut)>& instead,
                   const Summary& expected) const {
    const SuiteRun run = SuiteRun::of(suite, {.files = [&](std::size_t number, const std::function<void()>& carryOut) {
                                        number == call.number ? instead(carryOut) : carryOut();
                                      }});
    SCOPED_TRACE(call.name + " " + call.target + ", file operation " + std::to_string(call.number));
    EXPECT_EQ(run.end, RAN_THROUGH);
    EXPECT_EQ(run.outcome.summary(), expected);
    EXPECT_THAT(run.outcome.damages(), IsEmpty());
  }

  Summary expected(const Call& call, Consequence consequence, const Failure& failure) const {
    return expectedAfter(suite, undisturbed, call, consequence, failure);
  }

  const Suite suite;
  const Outcome undisturbed;
};

class FileFaults : public FaultyRuns, public ::testing::TestWithParam<int> {
 protected:
  FileFaults() : FaultyRuns(GetParam()) {}
};

class FileFaultsOfALaterIteration : public FaultyRuns, public ::testing::Test {
 protected:
  FileFaultsOfALaterIteration() : FaultyRuns(2) {}
};

}  // namespace

TEST_P(FileFaults, EachCallIsOfOneClass) {
  for (const Call& call : undisturbed.callsOf(Seam::files)) {
    EXPECT_EQ(
        std::count_if(CLASSES.begin(), CLASSES.end(), [&call](const FileCallClass& kind) { return isOf(kind, call); }),
        1)
        << call.name << " " << call.target;
  }
}

TEST_P(FileFaults, AnErrorOfTheFileManager) {
  for (const Call& call : undisturbed.callsOf(Seam::files)) {
    if (call.name != "fileExists") {
      expectAfter(
          call, [](const auto&) { throw FileManagerError(IS_GONE); },
          expected(call, classOf(call).afterError, platformError(call, IS_GONE)));
    }
  }
}

TEST_F(FileFaultsOfALaterIteration, AnErrorOfAnotherKind) {
  for (const Call& call : undisturbed.callsOf(Seam::files)) {
    expectAfter(
        call, [](const auto&) { throw std::bad_alloc(); },
        expected(call, classOf(call).afterError, unknownFailure(call, "other", std::bad_alloc().what())));
  }
}

TEST_P(FileFaults, AQuestionThatIsNotAnswered) {
  for (const Call& call : undisturbed.callsOf(Seam::files)) {
    if (call.name == "fileExists") {
      expectAfter(
          call, [](const auto&) {}, expected(call, classOf(call).withoutAnswer.value(), {}));
    }
  }
}

TEST_P(FileFaults, AWriteThatIsCutShort) {
  for (const Call& call : undisturbed.callsOf(Seam::files)) {
    if (call.name == "write") {
      const std::string message = "You can’t save the file “" + call.target.substr(call.target.rfind('/') + 1) +
                                  "” because the volume is out of space.";
      expectAfter(
          call,
          [](const auto& carryOut) {
            const ShortFiles limit;
            carryOut();
          },
          expected(call, classOf(call).afterError, platformError(call, message)));
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Iteration, FileFaults, ::testing::Values(1, 2), ::testing::PrintToStringParamName());

TEST(FileCalls, ThereAreSomeOfEachClass) {
  const std::vector<Call> calls = SuiteRun::of(threeScripts(1)).outcome.callsOf(Seam::files);
  for (const FileCallClass& kind : CLASSES) {
    EXPECT_TRUE(std::any_of(calls.begin(), calls.end(), [&kind](const Call& call) { return isOf(kind, call); }))
        << kind.operation << " " << kind.path;
  }
}

}  // namespace quobrak::faults
