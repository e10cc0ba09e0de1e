#include "tests/conformance/ScriptFileRun.h"
#include "tests/conformance/ScriptFiles.h"

/// The scripts of tests/scripts, each as a test of its own.
namespace quobrak::conformance {
namespace {

class ScriptFileTest final : public ScriptFileRun {
 public:
  explicit ScriptFileTest(std::string name) : name_(std::move(name)) {}

 private:
  void TestBody() override { check(readScriptFileIn(SCRIPTS_FOLDER, name_)); }

  std::string name_;
};

/// One that cannot be read is run, and fails with the reason.
bool isForThisProgram(const std::string& name) {
  try {
    return readScriptFileIn(SCRIPTS_FOLDER, name).isFor(QUOBRAK_DRIVER);
  } catch (const ScriptFileError&) {
    return true;
  }
}

void registerScripts() {
  for (const std::string& name : scriptNamesIn(SCRIPTS_FOLDER)) {
    if (isForThisProgram(name)) {
      ::testing::RegisterTest("Script", name.c_str(), nullptr, nullptr, __FILE__, __LINE__,
                              [name]() -> ScriptFileRun* { return new ScriptFileTest(name); });
    }
  }
}

}  // namespace
}  // namespace quobrak::conformance

/// Takes the place of the test library's own: the scripts are known only when it runs, and to read them before would
/// be too early for the constants of other units.
int main(int argc, char** argv) {
  ::testing::InitGoogleMock(&argc, argv);
  quobrak::conformance::registerScripts();
  return RUN_ALL_TESTS();
}
