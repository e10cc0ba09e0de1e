#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quobrak::host {

/// The text in single quotes, as bash and zsh read it: nothing in it means anything but itself.
std::string quotedForShell(std::string_view text);

/// The words, each in single quotes, with blanks between.
std::string quotedForShell(const std::vector<std::string>& words);

/// The text with every occurrence of `what` replaced.
std::string withReplaced(std::string text, std::string_view what, std::string_view replacement);

}  // namespace quobrak::host
