// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_MOMENT_H
#define TAMOBOX_MOMENT_H

#include <cstdint>

namespace tamobox {

/** A moment of the box's clock, in milliseconds since the epoch. */
using Moment = std::int64_t;

inline constexpr Moment millisecondsOfADay = 24 * 60 * 60 * 1000;

/** The last moment that the clock can be advanced to: the end of the year 9999. */
inline constexpr Moment latestMoment = 253'402'300'799'999;

} // namespace tamobox

#endif
