// SPDX-License-Identifier: Apache-2.0
// Flashes the LED, asks a question in a notification, and ends when it has an answer.
#include <QCoreApplication>

#include <tamo/device/Led.h>
#include <tamo/platform/Notification.h>
#include <tamo/platform/NotificationException.h>

#include <iostream>

using tamo::device::Led;
using tamo::device::LedColor;
using tamo::platform::Notification;
using tamo::platform::NotificationException;
using tamo::platform::PromptChoice;

namespace {

/** Goes on after an answer of the service's that the library does not know. */
class Application : public QCoreApplication
{
public:
    using QCoreApplication::QCoreApplication;

    bool notify(QObject* receiver, QEvent* event) override
    {
        try {
            return QCoreApplication::notify(receiver, event);
        } catch (const NotificationException& exception) {
            std::cerr << "three-answers: " << exception.what() << std::endl;
            return false;
        }
    }
};

} // namespace

int main(int argc, char** argv)
{
    Application app(argc, argv);

    Led led(LedColor::Green);
    led.flash(3);

    Notification question;
    question.setBody("The update is ready. Install it?");
    for (const char* label : {"now", "tonight", "never"}) {
        auto* const choice = new PromptChoice(&question);
        choice->setLabel(label);
        QObject::connect(choice, &PromptChoice::selected, [label] {
            std::cout << "the answer is: " << label << std::endl;
            QCoreApplication::quit();
        });
    }
    QObject::connect(&question, &Notification::acknowledged, [] {
        std::cout << "no answer" << std::endl;
        QCoreApplication::quit();
    });
    question.notify();
    return app.exec();
}
