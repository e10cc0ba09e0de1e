#include "host/program/Subcommands.h"

#include "host/commands/CommandsCommand.h"
#include "host/phone/PhoneCommand.h"

namespace quobrak::host {

const std::vector<Subcommand>& subcommands() {
  static const std::vector<Subcommand> SUBCOMMANDS{commandsSubcommand(), phoneSubcommand()};
  return SUBCOMMANDS;
}

}  // namespace quobrak::host
