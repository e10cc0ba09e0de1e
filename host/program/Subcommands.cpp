#include "host/program/Subcommands.h"

#include "host/commands/CommandsCommand.h"

namespace quobrak::host {

const std::vector<Subcommand>& subcommands() {
  static const std::vector<Subcommand> SUBCOMMANDS{commandsSubcommand()};
  return SUBCOMMANDS;
}

}  // namespace quobrak::host
