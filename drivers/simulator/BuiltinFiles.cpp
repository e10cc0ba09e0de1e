#include "drivers/simulator/BuiltinFiles.h"

namespace quobrak::simulator {

// Both are made at build time, by the build's quobrak_embed_files.
std::optional<std::string_view> embeddedPhoneFile(std::string_view path);
std::optional<std::string_view> embeddedFont(std::string_view path);

std::optional<std::string_view> builtinPhoneFile(std::string_view path) {
  return embeddedPhoneFile(path);
}

std::string_view builtinFont() {
  return embeddedFont("DejaVuSans.ttf").value();
}

}  // namespace quobrak::simulator
