// SPDX-License-Identifier: Apache-2.0
#include "PurchaseStore.h"

#include "BoxPurchases.h"
#include "KeptPurchases.h"

#include "common/BoxEnvironment.h"

#include <cstdlib>

namespace tamobox {

std::unique_ptr<PurchaseStore> PurchaseStore::ofThisBox()
{
    const char* const directory = std::getenv(stateVariable);
    if (directory != nullptr)
        return std::make_unique<KeptPurchases>(directory);
    return std::make_unique<BoxPurchases>();
}

} // namespace tamobox
