#include "host/run/TraceFollower.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <string_view>

namespace quobrak::host {

std::vector<JSONValue> TraceFollower::read() {
  if (!descriptor_.isOpen()) {
    descriptor_ = FileDescriptor(::open(file_.c_str(), O_RDONLY | O_CLOEXEC));
  }
  constexpr std::size_t BLOCK = 65536;
  std::array<char, BLOCK> buffer{};
  for (ssize_t size = 1; size > 0;) {
    size = ::read(descriptor_.number(), buffer.data(), buffer.size());
    rest_.append(buffer.data(), static_cast<std::size_t>(size > 0 ? size : 0));
  }
  std::vector<JSONValue> events;
  std::size_t begin = 0;
  for (std::size_t end = rest_.find('\n'); end != std::string::npos; end = rest_.find('\n', begin)) {
    try {
      events.push_back(JSONDecoder::decode(std::string_view(rest_).substr(begin, end - begin)));
    } catch (const DecodingError&) {
      ++unreadableLines_;
    }
    begin = end + 1;
  }
  rest_.erase(0, begin);
  return events;
}

}  // namespace quobrak::host
