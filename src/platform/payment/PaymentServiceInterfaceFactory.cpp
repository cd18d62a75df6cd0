// SPDX-License-Identifier: Apache-2.0
#include <tamomock/PaymentServiceInterfaceFactory.h>

#include "PaymentServiceInterfaceProductionImpl.h"
#include "PaymentServiceInterfaceTestImpl.h"
#include "core/NeverDestroyed.h"

#include <QtCore/QMutex>
#include <QtCore/QMutexLocker>

namespace tamomock {

namespace {

struct Installed
{
    QMutex mutex;
    PaymentServiceInterfaceFactory::Creator creator;
};

tamo::detail::NeverDestroyed<Installed> installed;

} // namespace

PaymentServiceInterface* PaymentServiceInterfaceFactory::create(int mode)
{
    Creator creator;
    {
        const QMutexLocker locker(&installed->mutex);
        creator = installed->creator;
    }
    return creator ? creator(mode) : createDefault(mode);
}

PaymentServiceInterface* PaymentServiceInterfaceFactory::createDefault(int mode)
{
    switch (mode) {
    case 0:
        return new PaymentServiceInterfaceTestImpl;
    case 1:
        return new PaymentServiceInterfaceProductionImpl;
    default:
        return nullptr;
    }
}

void PaymentServiceInterfaceFactory::setCreator(const Creator& creator)
{
    const QMutexLocker locker(&installed->mutex);
    installed->creator = creator;
}

void PaymentServiceInterfaceFactory::resetCreator()
{
    setCreator(nullptr);
}

} // namespace tamomock
