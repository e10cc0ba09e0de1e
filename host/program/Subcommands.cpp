#include "host/program/Subcommands.h"

#include "host/check/CheckCommand.h"
#include "host/run/RunCommand.h"

namespace quobrak::host {

const std::vector<Subcommand>& subcommands() {
  static const std::vector<Subcommand> SUBCOMMANDS{checkSubcommand(), runSubcommand()};
  return SUBCOMMANDS;
}

}  // namespace quobrak::host
