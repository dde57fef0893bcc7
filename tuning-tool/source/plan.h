#pragma once

#include "tuning-tool/source/difference.h"

#include <vector>

namespace tool
{
/// Whether the module has to be off while this field of its configuration is written, as its page in the window greys
/// the field while the module runs. Auto tables count as their working mode does.
bool isOffNeeded(const Part& part, const std::string& field);

/// One command of an `apply`: a part and the values that it is to have.
struct Step
{
    const Part* pPart;
    Snapshot::Values values;
    bool isPassing = false; ///< a switch that is turned for the others' sake, and turned back
};

/// The commands that bring a board from `live` to the values of `target`, in a safe order: modules are off while what
/// needs it is written, and run or rest as `target` says in the end (as before where it does not say). `live` has all
/// parts of `target` and the switches of their modules and of those that drive them, see `partsNeeded`.
std::vector<Step> plan(const Snapshot& live, const Snapshot& target);

/// The parts of `target` and the switches that a plan for it may turn.
std::vector<const Part*> partsNeeded(const Snapshot& target);
} // namespace tool
