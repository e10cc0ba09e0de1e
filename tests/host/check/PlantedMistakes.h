#pragma once

#include <string>
#include <vector>

#include "tests/host/check/Chance.h"

namespace quobrak::host::testing {

/// A script that somebody could have written, and what a check is to say of it.
struct PlantedScript {
  std::string text;
  /// As `inShort` writes them, without the script's number: what was planted, and nothing else.
  std::vector<std::string> findings;
};

/// What scripts do about a measured step.
enum class StepMistake { none, neverStopped, stoppedBeforeStart };

/// A script of that many lines or a few more, with as many mistakes in lines of their own.
PlantedScript plantedScript(Chance& chance, std::size_t lines, std::size_t mistakes, StepMistake stepMistake);

/// How many kinds of mistakes there are.
std::size_t mistakeKinds();

}  // namespace quobrak::host::testing
