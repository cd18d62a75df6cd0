// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_BENCH_PRICECOUNTER_H
#define TAMO_BENCH_PRICECOUNTER_H

#include <tamo/platform/PriceResponseInfo.h>

#include <QObject>

namespace tamobench {

/** A receiver that does next to nothing with a price. */
class PriceCounter : public QObject
{
    Q_OBJECT

public:
    static const char* slot() { return SLOT(onPrice(tamo::platform::PriceResponseInfo)); }

    int count = 0;

public Q_SLOTS:
    void onPrice(const tamo::platform::PriceResponseInfo&) { ++count; }
};

} // namespace tamobench

#endif
