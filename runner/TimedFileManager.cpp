#include "runner/TimedFileManager.h"

namespace quobrak {

void TimedFileManager::write(DataView data, const std::string& path) {
  constexpr std::uint32_t ONE_MILLISECOND = 1000;
  manager_->write(data, path);
  clock_.usleep(ONE_MILLISECOND);
}

}  // namespace quobrak
