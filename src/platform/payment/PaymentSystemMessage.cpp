// SPDX-License-Identifier: Apache-2.0
#include "PaymentSystemMessage.h"

#include "MessageWriter.h"

namespace tamo {
namespace platform {

namespace {

/** Adds a field of each type. */
struct FieldWriter
{
    MessageWriter& writer;
    const PaymentArguments& arguments;
    const char* name;

    void operator()(QString PaymentArguments::*text) const
    {
        writer.addText(name, arguments.*text);
    }
    void operator()(bool PaymentArguments::*flag) const { writer.addBool(name, arguments.*flag); }
    void operator()(QByteArray PaymentArguments::*utf8) const
    {
        if (!(arguments.*utf8).isNull())
            writer.addText(name, (arguments.*utf8).constData());
    }
};

} // namespace

/** What "dat" holds, in its order. */
struct PaymentSystemMessage::Fields
{
    using A = PaymentArguments;

    static constexpr Field purchase[] = {
        {"digitalGoodID", &A::digitalGoodId},     {"digitalGoodSKU", &A::digitalGoodSku},
        {"digitalGoodName", &A::digitalGoodName}, {"metaData", &A::purchaseMetadata},
        {"purchaseAppName", &A::applicationName}, {"purchaseAppIcon", &A::applicationIcon},
        {"uiGroupID", &A::windowGroupId},         {"purchaseAppID", &A::applicationId},
    };
    static constexpr Field existingPurchases[] = {
        {"uiGroupID", &A::windowGroupId},
        {"purchaseAppID", &A::applicationId},
        {"allowRefresh", &A::allowRefresh},
    };
    static constexpr Field aboutGood[] = {
        {"digitalGoodID", &A::digitalGoodId},
        {"digitalGoodSKU", &A::digitalGoodSku},
        {"purchaseAppID", &A::applicationId},
        {"uiGroupID", &A::windowGroupId},
    };
    static constexpr Field cancelSubscription[] = {
        {"purchaseID", &A::purchaseId},
        {"purchaseAppID", &A::applicationId},
        {"uiGroupID", &A::windowGroupId},
    };
};

constexpr PaymentSystemMessage PaymentSystemMessage::purchase{"paymentSystemType",
                                                              Fields::purchase};
constexpr PaymentSystemMessage PaymentSystemMessage::existingPurchases{"getExistingPurchasesType",
                                                                       Fields::existingPurchases};
constexpr PaymentSystemMessage PaymentSystemMessage::price{"getPriceType", Fields::aboutGood};
constexpr PaymentSystemMessage PaymentSystemMessage::checkStatus{"checkExistingType",
                                                                 Fields::aboutGood};
constexpr PaymentSystemMessage PaymentSystemMessage::cancelSubscription{"cancelSubscriptionType",
                                                                        Fields::cancelSubscription};

void PaymentSystemMessage::writeTo(MessageWriter& writer, int requestId,
                                   const PaymentArguments& arguments) const
{
    writer.addText("msg", m_msg);
    writer.addText("id", QString::number(requestId));
    writer.startObject("dat");
    for (std::size_t i = 0; i < m_fieldCount; ++i)
        std::visit(FieldWriter{writer, arguments, m_fields[i].name}, m_fields[i].value);
    writer.endObject();
}

} // namespace platform
} // namespace tamo
