// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_TERMINALKEEPER_H
#define TAMOBOX_TERMINALKEEPER_H

#include "common/Descriptor.h"

namespace tamobox {

/**
 * Gives the controlling terminal back on destruction. A shell in a box takes the terminal for
 * itself and cannot give it back, because it does not know process groups outside; where this
 * process group had it on construction, it has it again afterwards.
 */
class TerminalKeeper
{
public:
    TerminalKeeper();
    ~TerminalKeeper();
    TerminalKeeper(const TerminalKeeper&) = delete;
    TerminalKeeper& operator=(const TerminalKeeper&) = delete;

private:
    Descriptor m_terminal; // empty where there is nothing to give back
};

} // namespace tamobox

#endif
