// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_TESTS_SUBSTITUTENAVIGATOR_H
#define TAMO_TESTS_SUBSTITUTENAVIGATOR_H

#include "SubstituteProvider.h"

#include <tamomock/ZelNavigator.h>

namespace tamotest {

/**
 * The navigator: delivers what it is told to deliver(), and takes the answers. Reading an event
 * gives what is in its EventContent; a text that is not there is NULL.
 *
 * Every call goes into the journal as "navigator.<operation>", and fails when the journal says so.
 */
class SubstituteNavigator : public EventProvider<tamomock::ZelNavigator>
{
public:
    static constexpr int Domain = 1;

    SubstituteNavigator(CallJournal& journal, SubstituteCore& core);

    int invoke(const char* url, char** error) override;
    int openFile(const char* path, char** error) override;
    int addUri(const char* iconPath, const char* iconLabel, const char* category, const char* url,
               char** error) override;
    int extendTimeout(int milliseconds, char** error) override;
    int requestSwipeStart() override;
    int stopSwipeStart() override;
    int rotationLock(bool locked) override;
    int setOrientation(int angle, char** id) override;
    int setWindowAngle(int angle) override;
    int setClosePrompt(const char* title, const char* message) override;
    int clearClosePrompt() override;
    int setBadge(navigator_badge_t badge) override;
    int clearBadge() override;
    int eventGetWindowState(const zel_event_t* event) override;
    const char* eventGetGroupid(const zel_event_t* event) override;
    int eventGetOrientationAngle(const zel_event_t* event) override;
    const char* eventGetData(const zel_event_t* event) override;
    const char* eventGetId(const zel_event_t* event) override;
    const char* eventGetErr(const zel_event_t* event) override;
    int orientationCheckResponse(const zel_event_t* event, bool willTurn) override;
    int orientationCheckResponseId(const char* id, bool willTurn) override;
    int doneOrientation(const zel_event_t* event) override;
    int doneOrientationId(const char* id) override;

private:
    template<typename... Arguments>
    int accept(const char* operation, const Arguments&... arguments)
    {
        return m_journal.enter(operation, arguments...) ? 0 : -1;
    }

    const char* text(const char* operation, const std::optional<std::string>& part);
};

} // namespace tamotest

#endif
