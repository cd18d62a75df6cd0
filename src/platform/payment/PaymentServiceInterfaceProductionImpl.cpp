// SPDX-License-Identifier: Apache-2.0
#include "PaymentServiceInterfaceProductionImpl.h"

#include "MessageWriter.h"
#include "PackageManifest.h"
#include "PaymentAnswer.h"

#include <QtCore/QAbstractEventDispatcher>
#include <QtCore/QMutexLocker>
#include <QtCore/QSocketNotifier>

#include <cerrno>
#include <fcntl.h>
#include <poll.h>
#include <vector>

namespace tamomock {

using tamo::platform::PaymentArguments;
using tamo::platform::PaymentSystemMessage;
using tamo::platform::ServiceDescriptor;

namespace {

constexpr const char* controlPath = "/pps/services/paymentsystem/control";
constexpr std::size_t maxAnswerSize = 65536;

/** Whether a read has got nothing, not even what is too long. */
bool isFruitless(ssize_t size)
{
    return size == 0 || (size == -1 && errno != EMSGSIZE);
}

bool isReady(const ServiceDescriptor& control)
{
    pollfd state = {control.get(), POLLIN, 0};
    return ::poll(&state, 1, 0) == 1;
}

/** Takes an answer that is too long to be one, so that it is not met again. */
void discard(const ServiceDescriptor& control)
{
    constexpr std::size_t maxMessageSize = std::size_t{1} << 26;
    std::vector<char> buffer(maxAnswerSize);
    do
        buffer.resize(buffer.size() * 2);
    while (control.read(buffer.data(), buffer.size()) == -1 && errno == EMSGSIZE &&
           buffer.size() < maxMessageSize);
}

} // namespace

PaymentServiceInterfaceProductionImpl::PaymentServiceInterfaceProductionImpl()
    : m_control(controlPath, O_RDWR)
    , m_applicationId(tamo::platform::PackageManifest::readApplicationId())
    , m_buffer(new char[maxAnswerSize])
{
    watch();
}

PaymentServiceInterfaceProductionImpl::PaymentServiceInterfaceProductionImpl(
    int fd, const QByteArray& applicationId)
    : m_control(fd), m_applicationId(applicationId), m_buffer(new char[maxAnswerSize])
{
    watch();
}

PaymentServiceInterfaceProductionImpl::~PaymentServiceInterfaceProductionImpl()
{
    // Before the descriptor, which a dispatcher must not watch when it is closed.
    delete m_notifier;
}

void PaymentServiceInterfaceProductionImpl::watch()
{
    // A thread that has no dispatcher yet, or never, cannot make a notifier. It is made in the
    // event loop that this object comes to.
    if (!QAbstractEventDispatcher::instance()) {
        QMetaObject::invokeMethod(
            this, [this] { watch(); }, Qt::QueuedConnection);
        return;
    }
    m_notifier = new QSocketNotifier(m_control.get(), QSocketNotifier::Read, this);
    // Before the service hears of it.
    connect(m_notifier, SIGNAL(activated(int)), this, SLOT(rest()));
    connect(m_notifier, SIGNAL(activated(int)), this, SIGNAL(dataReady()));
}

void PaymentServiceInterfaceProductionImpl::rest()
{
    m_notifier->setEnabled(false);
}

void PaymentServiceInterfaceProductionImpl::purchase(
    const QString& digitalGoodId, const QString& digitalGoodSku, const QString& digitalGoodName,
    const QString& purchaseMetadata, const QString& applicationName, const QString& applicationIcon,
    const QString& windowGroupId, int requestId)
{
    PaymentArguments arguments;
    arguments.windowGroupId = windowGroupId;
    arguments.digitalGoodId = digitalGoodId;
    arguments.digitalGoodSku = digitalGoodSku;
    arguments.digitalGoodName = digitalGoodName;
    arguments.purchaseMetadata = purchaseMetadata;
    arguments.applicationName = applicationName;
    arguments.applicationIcon = applicationIcon;
    send(PaymentSystemMessage::purchase, requestId, std::move(arguments));
}

void PaymentServiceInterfaceProductionImpl::existingPurchases(bool allowRefresh,
                                                              const QString& windowGroupId,
                                                              int requestId)
{
    PaymentArguments arguments;
    arguments.windowGroupId = windowGroupId;
    arguments.allowRefresh = allowRefresh;
    send(PaymentSystemMessage::existingPurchases, requestId, std::move(arguments));
}

void PaymentServiceInterfaceProductionImpl::price(const QString& digitalGoodId,
                                                  const QString& digitalGoodSku,
                                                  const QString& windowGroupId, int requestId)
{
    send(PaymentSystemMessage::price, requestId, {windowGroupId, digitalGoodId, digitalGoodSku});
}

void PaymentServiceInterfaceProductionImpl::checkStatus(const QString& digitalGoodId,
                                                        const QString& digitalGoodSku,
                                                        const QString& windowGroupId, int requestId)
{
    send(PaymentSystemMessage::checkStatus, requestId,
         {windowGroupId, digitalGoodId, digitalGoodSku});
}

void PaymentServiceInterfaceProductionImpl::cancelSubscription(const QString& purchaseId,
                                                               const QString& windowGroupId,
                                                               int requestId)
{
    PaymentArguments arguments;
    arguments.windowGroupId = windowGroupId;
    arguments.purchaseId = purchaseId;
    send(PaymentSystemMessage::cancelSubscription, requestId, std::move(arguments));
}

void PaymentServiceInterfaceProductionImpl::send(const PaymentSystemMessage& message, int requestId,
                                                 PaymentArguments arguments)
{
    {
        // What all requests share.
        const QMutexLocker locker(&mutex);
        arguments.applicationId = m_applicationId;
    }
    tamo::platform::MessageWriter writer;
    message.writeTo(writer, requestId, arguments);
    writer.writeTo(m_control);
}

QSharedPointer<tamo::platform::InterfaceResponse>
PaymentServiceInterfaceProductionImpl::takeResponse()
{
    ssize_t size = m_control.read(m_buffer.get(), maxAnswerSize);
    bool isDead = false;
    if (isFruitless(size) && m_wasFruitless && isReady(m_control)) {
        // It is ready and had nothing, twice. Unless something has come meanwhile, it has lost its
        // filesystem, and would keep the event loop busy without end.
        size = m_control.read(m_buffer.get(), maxAnswerSize);
        isDead = isFruitless(size);
    }
    m_wasFruitless = isFruitless(size);
    if (size == -1 && errno == EMSGSIZE)
        discard(m_control);
    if (m_notifier && !isDead)
        m_notifier->setEnabled(true);
    if (size < 1)
        return {};
    return tamo::platform::readPaymentAnswer(m_buffer.get(), static_cast<std::size_t>(size));
}

} // namespace tamomock
