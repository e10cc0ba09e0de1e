#include <exception>
#include <filesystem>
#include <iostream>
#include <vector>

#include "fuzz/support/Replay.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

/// Stands in for a fuzzing compiler's main: runs the inputs that the files and folders on the command line hold.
int main(int argc, char* argv[]) {
  constexpr int FAULTY_CALL = 2;
  const std::vector<std::filesystem::path> paths(argv + 1, argv + argc);
  try {
    const std::size_t count = quobrak::fuzz::replay(LLVMFuzzerTestOneInput, paths, std::cout);
    if (count == 0) {
      std::cerr << "There is no input: name files, or folders with files." << std::endl;
      return FAULTY_CALL;
    }
    std::cout << count << " inputs held what was promised." << std::endl;
    return 0;
  } catch (const std::exception& error) {
    std::cerr << error.what() << std::endl;
    return FAULTY_CALL;
  }
}
