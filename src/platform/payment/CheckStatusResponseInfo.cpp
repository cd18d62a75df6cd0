// SPDX-License-Identifier: Apache-2.0
#include <tamo/platform/CheckStatusResponseInfo.h>

#include "CheckStatusResponseInfoPrivate.h"

namespace tamo {
namespace platform {

CheckStatusResponseInfo::CheckStatusResponseInfo()
    : DigitalGoodResponse(*new CheckStatusResponseInfoPrivate)
{
}

CheckStatusResponseInfo::CheckStatusResponseInfo(const QString& digitalGoodId,
                                                 const QString& digitalGoodSku)
    : DigitalGoodResponse(*new CheckStatusResponseInfoPrivate(digitalGoodId, digitalGoodSku))
{
}

CheckStatusResponseInfo::CheckStatusResponseInfo(const QString& digitalGoodId,
                                                 const QString& digitalGoodSku, int errorCode,
                                                 const QString& errorText)
    : DigitalGoodResponse(
          *new CheckStatusResponseInfoPrivate(digitalGoodId, digitalGoodSku, errorCode, errorText))
{
}

CheckStatusResponseInfo::CheckStatusResponseInfo(const CheckStatusResponseInfo& other) = default;

CheckStatusResponseInfo&
CheckStatusResponseInfo::operator=(const CheckStatusResponseInfo& other) = default;

CheckStatusResponseInfo::~CheckStatusResponseInfo() = default;

bool CheckStatusResponseInfo::active() const
{
    return CheckStatusResponseInfoPrivate::read<CheckStatusResponseInfoPrivate>(*this).active;
}

} // namespace platform
} // namespace tamo
