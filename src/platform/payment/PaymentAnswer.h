// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_PLATFORM_PAYMENT_PAYMENTANSWER_H
#define TAMO_PLATFORM_PAYMENT_PAYMENTANSWER_H

#include <tamomock/InterfaceResponse.h>

#include <cstddef>

namespace tamo {
namespace platform {

/**
 * Reads an answer of the payment system's.
 *
 * @return null where the text is not an answer, or does not hold what an error or a list must. What
 *         else is missing is left empty, and so is everything of a result that is not known.
 */
QSharedPointer<InterfaceResponse> readPaymentAnswer(const char* text, std::size_t length);

} // namespace platform
} // namespace tamo

#endif
