// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_PLATFORM_PAYMENT_RECEIPTDATE_H
#define TAMO_PLATFORM_PAYMENT_RECEIPTDATE_H

#include <QtCore/QDateTime>

#include <variant>

namespace tamo {
namespace platform {

/** A date of a receipt's. One that came as a number stays that until it is looked at: the local
 * time costs more than reading all the rest of a receipt. */
class ReceiptDate
{
public:
    /** Null. */
    ReceiptDate() = default;
    ReceiptDate(const QDateTime& date) : m_date(date) {}
    explicit ReceiptDate(qint64 millisecondsSinceEpoch) : m_date(millisecondsSinceEpoch) {}

    QDateTime toDateTime() const
    {
        if (const qint64* const milliseconds = std::get_if<qint64>(&m_date))
            return QDateTime::fromMSecsSinceEpoch(*milliseconds);
        return std::get<QDateTime>(m_date);
    }

private:
    std::variant<QDateTime, qint64> m_date;
};

} // namespace platform
} // namespace tamo

#endif
