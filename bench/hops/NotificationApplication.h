// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_BENCH_NOTIFICATIONAPPLICATION_H
#define TAMO_BENCH_NOTIFICATIONAPPLICATION_H

#include "ApplicationProcess.h"
#include "ServedMailbox.h"

#include <cstddef>
#include <string>

namespace tamobench {

/**
 * A Qt application with a notification of three choices, in a process of its own, and the
 * notification service.
 */
class NotificationApplication
{
public:
    /** Serves notifications and starts the application; returns when it has posted its own. */
    explicit NotificationApplication(Dispatcher dispatcher);

    /**
     * Has the application post the notification, with another text, and reads it from the mailbox.
     * Throws where that reads anything else, or within ten seconds nothing.
     *
     * @return nanoseconds from before the application's notify() until after the service's read
     */
    double post();

    /**
     * Tells the application that a choice was picked, and waits until the choice's selected() has
     * told of it. Throws where it tells something else, or within ten seconds nothing.
     *
     * @return nanoseconds from before the service's write until the slot is entered
     */
    double choose();

    /** How many bytes the service reads of a post. */
    std::size_t postSize() const { return m_postSize; }

    /** How many bytes the application reads of an answer. */
    std::size_t answerSize() const { return m_answerSize; }

private:
    void run();
    void learnAnswer(const std::string& post);
    std::string answer(int number) const;

    ServedMailbox m_control;
    int m_number = 0;         ///< of the last post or answer
    std::string m_answerHead; ///< an answer until the notification's text of its own
    std::string m_answerTail; ///< and after it
    std::size_t m_postSize = 0;
    std::size_t m_answerSize = 0;
    ApplicationProcess m_process;
};

} // namespace tamobench

#endif
