// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOMOCK_ZELNAVIGATOR_H
#define TAMOMOCK_ZELNAVIGATOR_H

#include <tamo/export.h>
#include <tamomock/ZelEventProvider.h>

#include <zel/navigator.h>

namespace tamomock {

/**
 * The navigator, as the library calls it: one operation for each function of `<zel/navigator.h>`,
 * named after it without `navigator_`, after those of ZelEventProvider. What a function takes,
 * returns and does is said there; an operation of a substitute keeps to it as far as the code under
 * test looks.
 *
 * @since 0.1
 */
class TAMO_EXPORT ZelNavigator : public ZelEventProvider
{
public:
    ~ZelNavigator() override;

    virtual int invoke(const char* url, char** error) = 0;
    virtual int openFile(const char* path, char** error) = 0;
    virtual int addUri(const char* iconPath, const char* iconLabel, const char* category,
                       const char* url, char** error) = 0;
    virtual int extendTimeout(int milliseconds, char** error) = 0;
    virtual int requestSwipeStart() = 0;
    virtual int stopSwipeStart() = 0;
    virtual int rotationLock(bool locked) = 0;
    virtual int setOrientation(int angle, char** id) = 0;
    virtual int setWindowAngle(int angle) = 0;
    virtual int setClosePrompt(const char* title, const char* message) = 0;
    virtual int clearClosePrompt() = 0;
    virtual int setBadge(navigator_badge_t badge) = 0;
    virtual int clearBadge() = 0;
    virtual int eventGetWindowState(const zel_event_t* event) = 0;
    virtual const char* eventGetGroupid(const zel_event_t* event) = 0;
    virtual int eventGetOrientationAngle(const zel_event_t* event) = 0;
    virtual const char* eventGetData(const zel_event_t* event) = 0;
    virtual const char* eventGetId(const zel_event_t* event) = 0;
    virtual const char* eventGetErr(const zel_event_t* event) = 0;
    virtual int orientationCheckResponse(const zel_event_t* event, bool willTurn) = 0;
    virtual int orientationCheckResponseId(const char* id, bool willTurn) = 0;
    virtual int doneOrientation(const zel_event_t* event) = 0;
    virtual int doneOrientationId(const char* id) = 0;
};

} // namespace tamomock

#endif
