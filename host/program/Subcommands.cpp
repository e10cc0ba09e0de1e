#include "host/program/Subcommands.h"

namespace quobrak::host {

const std::vector<Subcommand>& subcommands() {
  static const std::vector<Subcommand> SUBCOMMANDS{};
  return SUBCOMMANDS;
}

}  // namespace quobrak::host
