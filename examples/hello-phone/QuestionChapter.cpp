// SPDX-License-Identifier: Apache-2.0
#include "QuestionChapter.h"

#include "report.h"

#include <tamo/platform/PromptChoice.h>

using tamo::device::Led;
using tamo::device::LedColor;
using tamo::platform::PromptChoice;

QuestionChapter::QuestionChapter() : m_led(LedColor::Green)
{
    QObject::connect(&m_led, &Led::activeChanged, [](bool isActive) {
        report(isActive ? QStringLiteral("led: flashing") : QStringLiteral("led: off"));
    });
    m_question.setBody(QStringLiteral("The update is ready. Install it?"));
    const QString labels[] = {QStringLiteral("now"), QStringLiteral("tonight"),
                              QStringLiteral("never")};
    for (const QString& label : labels) {
        auto* const choice = new PromptChoice(&m_question); // which deletes it
        choice->setLabel(label);
        QObject::connect(choice, &PromptChoice::selected, [this, label] {
            report(QStringLiteral("question: answered with %1").arg(label));
            m_led.cancel();
        });
    }
    m_led.flash();
    m_question.notify();
    report(QStringLiteral("question: asked"));
}
