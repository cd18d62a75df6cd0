// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_CAPTUREDPROGRAM_H
#define TAMOBOX_CAPTUREDPROGRAM_H

#include <string>
#include <vector>

namespace tamobox {

/** What a program that was run to its end had to say. */
struct CapturedProgram
{
    int exitStatus = 0;    ///< see statusForWaitResult()
    std::string firstLine; ///< of its standard output and standard error together
};

/**
 * Runs a program to its end, with nothing on its standard input.
 *
 * @throws Failure where no process can be made
 */
CapturedProgram runCaptured(const std::vector<std::string>& command);

} // namespace tamobox

#endif
