// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_PAYMENTREQUEST_H
#define TAMOBOX_PAYMENTREQUEST_H

#include "Catalogue.h"
#include "Moment.h"

#include "pps/MessageReader.h"
#include "services/ApplicationMailbox.h"

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace tamobox {

/** What the purchase dialog shows, apart from the good. */
struct DialogContent
{
    std::vector<std::pair<std::string, std::string>> texts; ///< by their names in the message
    std::optional<double> backgroundAlpha;                  ///< from 0 (nothing is seen of it) to 1
    std::vector<std::string> buttons;                       ///< their labels
};

/** What an application asks the payment system, or the purchase dialog, for. */
struct PaymentRequest
{
    int number = 0; ///< its own in the box, above 0; also of the purchase that comes of it
    ApplicationClient client;
    std::string id; ///< as the application numbers it
    Operation operation = Operation::Purchase;
    bool isDialog = false; ///< a purchase in test mode, through the dialog
    std::string goodId;
    std::string goodSku;
    std::string goodName;
    std::string metadata;
    std::string applicationName;
    std::string applicationIcon;
    std::string group;
    std::string applicationId; ///< whose the purchases are
    std::string purchaseId;
    bool allowRefresh = false;
    DialogContent dialog;

    std::optional<Good> good; ///< of the catalogue, as it was when the request came
    Policy policy;
    Moment since = 0;      ///< by the box's clock
    std::size_t bytes = 0; ///< of its message
};

/** The operation that a request's `msg` asks for; nothing where there is none of that name. */
std::optional<Operation> operationNamed(const std::string& message);

/** Reads the members of `dat` of a request, in which the reader stands. Throws Failure where one is
 * missing or wrong. */
void readPaymentRequest(const MessageReader& dat, PaymentRequest& request);

/** A request in a sentence: "request 3 of process 7 (name)". */
std::string requestText(const PaymentRequest& request);

} // namespace tamobox

#endif
