#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "host/run/IterationProgress.h"
#include "host/run/RunRecord.h"

namespace quobrak::host {

/// The measure files below a folder, in the order in which their steps began. One that cannot be used is told in
/// `notices`. None where there is no such folder.
std::vector<MeasuredStep> readMeasures(const std::filesystem::path& folder, std::vector<std::string>& notices);

/// Gives each measure to the script of the iteration in which its step was stopped, as the trace tells by the step's
/// name and start, so that steps of one name in two scripts stay apart. What does not fit together is told in `notices`
/// and lost neither way: a measure that the trace does not know belongs to the last script that began; a step without a
/// measure file counts as the trace has it, where the test process finished.
void assignMeasures(std::vector<MeasuredStep> measures, const std::vector<TracedStep>& traced,
                    IterationRecord& iteration, std::vector<std::string>& notices);

}  // namespace quobrak::host
