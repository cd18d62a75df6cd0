// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_PLATFORM_PAYMENT_CHECKSTATUSRESPONSEINFOPRIVATE_H
#define TAMO_PLATFORM_PAYMENT_CHECKSTATUSRESPONSEINFOPRIVATE_H

#include "DigitalGoodResponsePrivate.h"

namespace tamo {
namespace platform {

class CheckStatusResponseInfoPrivate : public DigitalGoodResponsePrivate
{
public:
    using DigitalGoodResponsePrivate::DigitalGoodResponsePrivate;

    bool active = false;
};

} // namespace platform
} // namespace tamo

#endif
