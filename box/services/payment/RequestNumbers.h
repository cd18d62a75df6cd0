// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_REQUESTNUMBERS_H
#define TAMOBOX_REQUESTNUMBERS_H

#include "Purchase.h"

#include <algorithm>

namespace tamobox {

/** Hands out the numbers of requests, one after the other. */
class RequestNumbers
{
public:
    /** What the number is where there are no more. */
    static constexpr int none = 0;

    /** Numbers that are handed out from now on are above this one. */
    void startAfter(int number) { m_last = std::max(m_last, number); }

    /** The next number; `none` after Purchase::highestNumber. */
    int next() { return m_last < Purchase::highestNumber ? ++m_last : none; }

private:
    int m_last = 0;
};

} // namespace tamobox

#endif
