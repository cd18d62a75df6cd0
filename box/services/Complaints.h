// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_COMPLAINTS_H
#define TAMOBOX_COMPLAINTS_H

#include "LineBudget.h"

#include "common/Timer.h"

#include <string>

namespace tamobox {

/** What a service says of others on the box's standard error, headed by its program's name. */
class Complaints
{
public:
    explicit Complaints(EventLoop& loop);

    /** Writes a line of what an application did wrong; of a flood, a few lines and their number. */
    void add(const std::string& sentence);

    /** Writes a line in any case. */
    static void write(const std::string& sentence);

private:
    void reckon();

    LineBudget m_budget;
    Timer m_timer;
};

/** A text of somebody else's for a line on a terminal: one line, without control characters, cut
 * where it is long, in quotes. */
std::string quoted(const std::string& text);

} // namespace tamobox

#endif
