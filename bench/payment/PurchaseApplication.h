// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_BENCH_PURCHASEAPPLICATION_H
#define TAMO_BENCH_PURCHASEAPPLICATION_H

#include "ApplicationProcess.h"
#include "SharedMemory.h"

#include <tamo/platform/PriceResponseInfo.h>
#include <tamo/platform/PurchaseResponseInfo.h>

#include <QObject>

#include <atomic>
#include <cstdint>

namespace tamobench {

/** A Qt application that asks the payment system of the box that it runs in, in a process of its
 * own. Its manifest is in the directory that it was started in. */
class PurchaseApplication : public QObject
{
    Q_OBJECT

public:
    explicit PurchaseApplication(Dispatcher dispatcher);

    /**
     * Has the application ask for the price of a good and waits for the answer. Throws where that
     * is an error, or none comes within ten seconds.
     *
     * @return nanoseconds from before the request until the slot is entered
     */
    double price();

    /** Likewise, has it buy a good that is approved at once. */
    double purchase();

private Q_SLOTS:
    void onPrice(const tamo::platform::PriceResponseInfo& info);
    void onPurchase(const tamo::platform::PurchaseResponseInfo& info);

private:
    void run();
    double take(int order);
    void tell(const tamo::platform::PaymentServiceResponse& info);

    SharedMemory<std::atomic<std::int64_t>> m_start; ///< of the application's request
    int m_order = 0; ///< what the application was ordered to do last
    ApplicationProcess m_process;
};

} // namespace tamobench

#endif
