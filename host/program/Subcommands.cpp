#include "host/program/Subcommands.h"

#include "host/check/CheckCommand.h"
#include "host/commands/CommandsCommand.h"
#include "host/phone/PhoneCommand.h"
#include "host/run/RunCommand.h"

namespace quobrak::host {

const std::vector<Subcommand>& subcommands() {
  static const std::vector<Subcommand> SUBCOMMANDS{checkSubcommand(), runSubcommand(), commandsSubcommand(),
                                                   phoneSubcommand()};
  return SUBCOMMANDS;
}

}  // namespace quobrak::host
