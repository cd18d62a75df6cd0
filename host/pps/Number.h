// SPDX-License-Identifier: Apache-2.0
#ifndef PPS_NUMBER_H
#define PPS_NUMBER_H

#include "Fault.h"

#include <cstdint>

namespace pps {

/** A number as it was written: an exact integer where it is written as one that fits. */
struct Number
{
    bool isInteger;
    union {
        std::int64_t integer;
        double real;
    };
};

/**
 * Reads the number (RFC 8259) that begins at `cursor` and moves `cursor` behind it. A number is
 * refused if it is too large for a double, and if it is not zero but too small for one, because it
 * would come back as another number.
 */
const Fault* scanNumber(const char*& cursor, const char* end, Number& number);

} // namespace pps

#endif
