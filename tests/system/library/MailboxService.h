// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_TESTS_MAILBOXSERVICE_H
#define TAMO_TESTS_MAILBOXSERVICE_H

#include <tamo/PpsAccessor.h>

#include "PpsDescriptor.h"

#include <QByteArray>
#include <QVariantMap>

#include <gtest/gtest.h>

#include <string>

namespace tamotest {

/** A service of the test's own behind a mailbox below `/pps`. */
class MailboxService
{
public:
    explicit MailboxService(const std::string& name) : m_mailbox(name + "?serve")
    {
        EXPECT_EQ(m_mailbox.error(), 0);
    }

    /** The attributes of the next request, waited for; an empty map where none comes. */
    QVariantMap next()
    {
        while (m_mailbox.waitUntilReadable()) {
            const std::string text = m_mailbox.read();
            // Others tell of clients that come and go.
            if (text.rfind('@', 0) != 0)
                continue;
            m_client = QByteArray::fromStdString(text.substr(0, text.find('\n') + 1));
            return tamo::PpsAccessor::decode(QByteArray::fromStdString(text)).first().toMap();
        }
        return {};
    }

    /** Sends attributes, as text, to whoever made the last request. */
    void write(const QByteArray& text) const
    {
        EXPECT_EQ(m_mailbox.write((m_client + text).toStdString()), 0);
    }

    void answer(const QVariantMap& attributes) const
    {
        write(tamo::PpsAccessor::encode(attributes));
    }

private:
    const PpsDescriptor m_mailbox;
    QByteArray m_client;
};

} // namespace tamotest

#endif
