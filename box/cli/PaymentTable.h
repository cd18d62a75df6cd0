// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_PAYMENTTABLE_H
#define TAMOBOX_PAYMENTTABLE_H

#include "pps/MessageReader.h"

#include <cstdint>
#include <string>
#include <vector>

namespace tamobox {

/** Which of the payment service's reports a table is of. */
enum class PaymentTable {
    Waiting,  ///< requests that wait
    Purchases ///< what was bought
};

/** The headings of a table. */
std::vector<std::string> paymentHeadings(PaymentTable table);

/** The cells of one report, in which the reader stands. */
std::vector<std::string> paymentRow(PaymentTable table, const MessageReader& report);

/** All members of a report, a line each, those of its objects under its name and theirs. @param
 * json the report, as membersToJson() has it */
std::string paymentDetails(const std::string& json);

} // namespace tamobox

#endif
