// SPDX-License-Identifier: Apache-2.0
#include <tamomock/ZelNavigatorImpl.h>

namespace tamomock {

ZelNavigatorImpl::~ZelNavigatorImpl() = default;

int ZelNavigatorImpl::requestEvents(int flags)
{
    return navigator_request_events(flags);
}

int ZelNavigatorImpl::getDomain()
{
    return navigator_get_domain();
}

int ZelNavigatorImpl::invoke(const char* url, char** error)
{
    return navigator_invoke(url, error);
}

int ZelNavigatorImpl::openFile(const char* path, char** error)
{
    return navigator_open_file(path, error);
}

int ZelNavigatorImpl::addUri(const char* iconPath, const char* iconLabel, const char* category,
                             const char* url, char** error)
{
    return navigator_add_uri(iconPath, iconLabel, category, url, error);
}

int ZelNavigatorImpl::extendTimeout(int milliseconds, char** error)
{
    return navigator_extend_timeout(milliseconds, error);
}

int ZelNavigatorImpl::requestSwipeStart()
{
    return navigator_request_swipe_start();
}

int ZelNavigatorImpl::stopSwipeStart()
{
    return navigator_stop_swipe_start();
}

int ZelNavigatorImpl::rotationLock(bool locked)
{
    return navigator_rotation_lock(locked);
}

int ZelNavigatorImpl::setOrientation(int angle, char** id)
{
    return navigator_set_orientation(angle, id);
}

int ZelNavigatorImpl::setWindowAngle(int angle)
{
    return navigator_set_window_angle(angle);
}

int ZelNavigatorImpl::setClosePrompt(const char* title, const char* message)
{
    return navigator_set_close_prompt(title, message);
}

int ZelNavigatorImpl::clearClosePrompt()
{
    return navigator_clear_close_prompt();
}

int ZelNavigatorImpl::setBadge(navigator_badge_t badge)
{
    return navigator_set_badge(badge);
}

int ZelNavigatorImpl::clearBadge()
{
    return navigator_clear_badge();
}

int ZelNavigatorImpl::eventGetWindowState(const zel_event_t* event)
{
    return navigator_event_get_window_state(event);
}

const char* ZelNavigatorImpl::eventGetGroupid(const zel_event_t* event)
{
    return navigator_event_get_groupid(event);
}

int ZelNavigatorImpl::eventGetOrientationAngle(const zel_event_t* event)
{
    return navigator_event_get_orientation_angle(event);
}

const char* ZelNavigatorImpl::eventGetData(const zel_event_t* event)
{
    return navigator_event_get_data(event);
}

const char* ZelNavigatorImpl::eventGetId(const zel_event_t* event)
{
    return navigator_event_get_id(event);
}

const char* ZelNavigatorImpl::eventGetErr(const zel_event_t* event)
{
    return navigator_event_get_err(event);
}

int ZelNavigatorImpl::orientationCheckResponse(const zel_event_t* event, bool willTurn)
{
    return navigator_orientation_check_response(event, willTurn);
}

int ZelNavigatorImpl::orientationCheckResponseId(const char* id, bool willTurn)
{
    return navigator_orientation_check_response_id(id, willTurn);
}

int ZelNavigatorImpl::doneOrientation(const zel_event_t* event)
{
    return navigator_done_orientation(event);
}

int ZelNavigatorImpl::doneOrientationId(const char* id)
{
    return navigator_done_orientation_id(id);
}

} // namespace tamomock
