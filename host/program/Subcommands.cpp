#include "host/program/Subcommands.h"

#include "host/check/CheckCommand.h"

namespace quobrak::host {

const std::vector<Subcommand>& subcommands() {
  static const std::vector<Subcommand> SUBCOMMANDS{checkSubcommand()};
  return SUBCOMMANDS;
}

}  // namespace quobrak::host
