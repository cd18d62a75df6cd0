// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_BENCH_ANSWER_H
#define TAMO_BENCH_ANSWER_H

#include <QByteArray>
#include <QVariantMap>

namespace tamobench {

/**
 * A service's answer as applications receive them: 230 bytes, an object of attributes, one of which
 * holds an object that holds an array and another object.
 */
struct Answer
{
    static QByteArray text(); ///< as PPS text
    static QByteArray json(); ///< the same as JSON, without spaces

    /** The map that it means, built by hand: each name and string from its bytes with fromUtf8().
     */
    static QVariantMap byHand();

    /** The attributes alone, as a service would encode them. */
    static QVariantMap attributes();
};

} // namespace tamobench

#endif
