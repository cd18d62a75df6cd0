// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_PAYMENTLIMITS_H
#define TAMOBOX_PAYMENTLIMITS_H

#include <cstddef>

namespace tamobox {

// How long texts are at most, in bytes.

/** Of the metadata of a request: a receipt has to find room in an answer, however it is escaped. */
inline constexpr std::size_t longestMetadata = 8192;

/** Of any other member of a request. */
inline constexpr std::size_t longestMember = 4096;

/** Of the text of an error: applications read 1,024 bytes of a dialog's answer, in which each
 * character may be escaped. */
inline constexpr std::size_t longestFailureText = 256;

} // namespace tamobox

#endif
