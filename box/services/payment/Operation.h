// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_OPERATION_H
#define TAMOBOX_OPERATION_H

namespace tamobox {

/** What an application asks the payment system for. */
enum class Operation { Purchase, ExistingPurchases, Price, CheckStatus, CancelSubscription };

/** How messages call an operation. */
struct OperationName
{
    Operation operation;
    const char* name;    ///< in the catalogue and in lists
    const char* request; ///< `msg` of a request
    const char* success; ///< `res` of an answer
    const char* failure; ///< likewise
};

inline constexpr OperationName operationNames[] = {
    {Operation::Purchase, "purchase", "paymentSystemType", "paymentSystemSuccess",
     "paymentSystemFailure"},
    {Operation::ExistingPurchases, "existingPurchases", "getExistingPurchasesType",
     "getExistingPurchasesSuccess", "getExistingPurchasesFailure"},
    {Operation::Price, "price", "getPriceType", "getPriceSuccess", "getPriceFailure"},
    {Operation::CheckStatus, "checkStatus", "checkExistingType", "checkExistingSuccess",
     "checkExistingFailure"},
    {Operation::CancelSubscription, "cancelSubscription", "cancelSubscriptionType",
     "cancelSubscriptionSuccess", "cancelSubscriptionFailure"},
};

/** The names of an operation. */
constexpr const OperationName& namesOf(Operation operation)
{
    return operationNames[static_cast<int>(operation)];
}

} // namespace tamobox

#endif
