// SPDX-License-Identifier: Apache-2.0
#include "NotificationApplication.h"

#include "Clock.h"
#include "FullNotification.h"

#include <tamo/PpsAccessor.h>

#include <array>
#include <cstdio>
#include <stdexcept>

namespace tamobench {

/** A number as texts carry it: all are equally long. */
static std::string stamp(int number)
{
    std::array<char, 16> text = {};
    std::snprintf(text.data(), text.size(), "number %08d", number);
    return text.data();
}

NotificationApplication::NotificationApplication(Dispatcher dispatcher)
    : m_control("/pps/services/notification/control")
{
    m_process.start(dispatcher, [this] { run(); });
    m_process.order(++m_number);
    const std::string post(m_control.readRequest());
    m_process.await(m_number);
    m_postSize = post.size();
    learnAnswer(post);
}

double NotificationApplication::post()
{
    m_process.order(++m_number);
    const std::string_view text = m_control.readRequest();
    const std::int64_t end = now();
    if (text.size() != m_postSize || text.find(stamp(m_number)) == std::string_view::npos)
        throw std::runtime_error("the service read something else than was posted");
    return static_cast<double>(end - m_process.await(m_number));
}

double NotificationApplication::choose()
{
    const std::string text = answer(++m_number);
    const std::int64_t start = now();
    m_control.send(text);
    return static_cast<double>(m_process.await(m_number) - start);
}

void NotificationApplication::run()
{
    using tamo::platform::PromptChoice;
    tamo::platform::Notification notification;
    fill(notification);
    QObject::connect(notification.promptChoiceAt(1), &PromptChoice::selected,
                     [this](const QString& context) {
                         const std::int64_t time = now();
                         m_process.tell(time, context.mid(context.lastIndexOf(' ')).toInt());
                     });
    m_process.exec([this, &notification](int number) {
        notification.setBody(QString::fromStdString(stamp(number)));
        const std::int64_t time = now();
        notification.notify();
        m_process.tell(time, number);
    });
}

void NotificationApplication::learnAnswer(const std::string& post)
{
    const std::string client = post.substr(0, post.find('\n'));
    const QVariantMap message = tamo::PpsAccessor::decode(QByteArray::fromStdString(post));
    const QVariantMap dat =
        message.value(QString::fromStdString(client)).toMap().value("dat").toMap();
    const QVariantMap choice = dat.value("promptChoices").toList().value(1).toMap();
    const auto member = [](const QVariantMap& map, const char* name) {
        return map.value(name).toString().toStdString();
    };
    m_answerHead = client + "\nmsg::Acknowledge\ndat:json:{\"id\":\"" + member(dat, "id") +
                   "\",\"context\":\"";
    m_answerTail = "\",\"promptResponse\":1,\"promptChoice\":{\"id\":\"" + member(choice, "id") +
                   "\",\"label\":\"" + member(choice, "label") + "\",\"context\":\"" +
                   member(choice, "context") + "\"}}\n";
    // The application reads "@control" without the client's number.
    m_answerSize = answer(0).size() - (client.size() - client.find('.'));
}

std::string NotificationApplication::answer(int number) const
{
    return m_answerHead + stamp(number) + m_answerTail;
}

} // namespace tamobench
