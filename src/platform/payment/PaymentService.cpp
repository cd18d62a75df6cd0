// SPDX-License-Identifier: Apache-2.0
#include <tamo/platform/PaymentService.h>

#include "PaymentServiceImpl.h"

#include <QtCore/QMutex>
#include <QtCore/QMutexLocker>

namespace tamo {
namespace platform {

PaymentService::PaymentService() = default;

PaymentService::~PaymentService() = default;

PaymentService* PaymentService::getInstance()
{
    // Never destroyed: threads may make requests while the process ends.
    static QMutex& mutex = *new QMutex;
    static PaymentService* instance = nullptr;
    const QMutexLocker locker(&mutex);
    if (!instance)
        instance = new PaymentServiceImpl;
    return instance;
}

} // namespace platform
} // namespace tamo
