// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_TESTS_SUBSTITUTECHANNEL_H
#define TAMO_TESTS_SUBSTITUTECHANNEL_H

#include <QList>
#include <QMetaMethod>
#include <QObject>
#include <QSharedPointer>
#include <QVariantMap>

namespace tamotest {

/** A service in place of the one behind a channel: the current channel while it lives. */
template<class Channel>
class SubstituteChannel
{
public:
    SubstituteChannel()
    {
        Channel::setChannel(m_channel);
        QObject::connect(m_channel.data(), &Channel::sendPassthrough, m_channel.data(),
                         [this](const QVariantMap& map) { sent.append(map); });
    }
    SubstituteChannel(const SubstituteChannel&) = delete;
    SubstituteChannel& operator=(const SubstituteChannel&) = delete;
    ~SubstituteChannel()
    {
        m_channel->disconnect();
        Channel::resetChannel();
    }

    Channel* channel() const { return m_channel.data(); }

    /** Delivers a map to the channel's users. */
    void receive(const QVariantMap& map) { Q_EMIT m_channel->receivePassthrough(map); }

    /** Whether anybody is connected to what is received. */
    bool isHeard() const { return m_channel->isHeard(); }

    /** What has been sent, each since the last time. */
    QList<QVariantMap> takeSent()
    {
        QList<QVariantMap> taken;
        taken.swap(sent);
        return taken;
    }

    QList<QVariantMap> sent;

private:
    struct Probe : Channel
    {
        Probe() : Channel(typename Channel::WithoutPps()) {}
        bool isHeard() const
        {
            return this->isSignalConnected(QMetaMethod::fromSignal(&Channel::receivePassthrough));
        }
    };

    const QSharedPointer<Probe> m_channel = QSharedPointer<Probe>::create();
};

} // namespace tamotest

#endif
