// SPDX-License-Identifier: Apache-2.0
#ifndef HELLO_PHONE_QUESTIONCHAPTER_H
#define HELLO_PHONE_QUESTIONCHAPTER_H

#include <tamo/device/Led.h>
#include <tamo/platform/Notification.h>

/** Asks something in a notification, with the LED flashing, and reports the answer:
 * `question: answered with tonight`. */
class QuestionChapter
{
public:
    QuestionChapter();

private:
    tamo::device::Led m_led;
    tamo::platform::Notification m_question;
};

#endif
