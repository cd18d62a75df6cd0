// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_MACHINECHECKS_H
#define TAMOBOX_MACHINECHECKS_H

#include <string>
#include <vector>

namespace tamobox {

/** What one check of the machine found. */
struct CheckResult
{
    enum class Verdict {
        Good,
        Tolerable, ///< a box runs, but not quite as it should
        Bad        ///< no box runs
    };

    Verdict verdict = Verdict::Good;
    std::string detail; ///< what was found
    std::string mend;   ///< what would mend it: a command to type; empty where all is good
};

/** One check of what a box needs from the machine. */
struct MachineCheck
{
    std::string name;
    CheckResult (*run)();
};

/** Every check, the causes before what they would break. */
const std::vector<MachineCheck>& machineChecks();

} // namespace tamobox

#endif
