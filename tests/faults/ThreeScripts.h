#pragma once

#include "tests/faults/SuiteRun.h"

namespace quobrak::faults {

/// A suite that does what suites do: a script that succeeds, one that fails, one that touches points; each with
/// measured steps, pictures and a dump, and none dependent on what another has left on the phone. The first and the
/// last meet a permission alert, and the last fails unless it is answered. Between them they use every primitive of the
/// driver that the system uses.
///
/// The Documents directory holds the results of an earlier run, and a file of someone else's.
Suite threeScripts(int iteration);

}  // namespace quobrak::faults
