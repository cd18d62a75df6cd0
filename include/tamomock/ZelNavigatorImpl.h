// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOMOCK_ZELNAVIGATORIMPL_H
#define TAMOMOCK_ZELNAVIGATORIMPL_H

#include <tamo/export.h>
#include <tamomock/ZelNavigator.h>

namespace tamomock {

/**
 * The default ZelNavigator: each operation calls the function that it is named after.
 *
 * @since 0.1
 */
class TAMO_EXPORT ZelNavigatorImpl : public ZelNavigator
{
public:
    ~ZelNavigatorImpl() override;

    int requestEvents(int flags) override;
    int getDomain() override;
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
};

} // namespace tamomock

#endif
