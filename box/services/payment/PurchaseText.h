// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_PURCHASETEXT_H
#define TAMOBOX_PURCHASETEXT_H

#include "Purchase.h"

#include "common/Json.h"

#include <rapidjson/document.h>

#include <string>

namespace tamobox {

/** Writes a purchase as a JSON object: how it is kept. */
void writePurchase(Json& json, const Purchase& purchase);

/** Reads what writePurchase() wrote. Throws Failure where it is anything else. */
Purchase readPurchase(const rapidjson::Value& json);

} // namespace tamobox

#endif
