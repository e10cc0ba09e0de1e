// A command table with two commands of one name. It must not compile, and only for the assertion at its end.

#include <array>

#include "quobrakUITests/CommandRow.h"

namespace quobrak {

void doNothing() {}

constexpr std::array ROWS{
    command<&doNothing>("pause", "Waits."),
    command<&doNothing>("pause", "Waits too."),
};

static_assert(tableFault(ROWS, 2) == TableFault::none);

}  // namespace quobrak
