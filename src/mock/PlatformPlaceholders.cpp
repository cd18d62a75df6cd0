// SPDX-License-Identifier: Apache-2.0
// Stands in for platform functions that the libraries do not have yet: each fails.
#include <screen/screen.h>
#include <zel/deviceinfo.h>
#include <zel/navigator.h>
#include <zel/screen.h>

#include <cerrno>

#define PLACEHOLDER __attribute__((weak))

PLACEHOLDER int screen_create_context(screen_context_t*, int)
{
    errno = ENOTSUP;
    return -1;
}

PLACEHOLDER int screen_destroy_context(screen_context_t)
{
    errno = ENOTSUP;
    return -1;
}

PLACEHOLDER int screen_get_context_property_iv(screen_context_t, int, int*)
{
    errno = ENOTSUP;
    return -1;
}

PLACEHOLDER int screen_get_context_property_pv(screen_context_t, int, void**)
{
    errno = ENOTSUP;
    return -1;
}

PLACEHOLDER int screen_get_display_property_iv(screen_display_t, int, int*)
{
    errno = ENOTSUP;
    return -1;
}

PLACEHOLDER int screen_get_display_property_cv(screen_display_t, int, int, char*)
{
    errno = ENOTSUP;
    return -1;
}

PLACEHOLDER int screen_get_event_property_cv(screen_event_t, int, int, char*)
{
    errno = ENOTSUP;
    return -1;
}

PLACEHOLDER int screen_get_event_property_iv(screen_event_t, int, int*)
{
    errno = ENOTSUP;
    return -1;
}

PLACEHOLDER int screen_get_event_property_llv(screen_event_t, int, long long*)
{
    errno = ENOTSUP;
    return -1;
}

PLACEHOLDER int screen_get_event_property_pv(screen_event_t, int, void**)
{
    errno = ENOTSUP;
    return -1;
}

PLACEHOLDER int deviceinfo_get_data(deviceinfo_data_t**)
{
    errno = ENOTSUP;
    return -1;
}

PLACEHOLDER void deviceinfo_free_data(deviceinfo_data_t**)
{
    errno = ENOTSUP;
}

PLACEHOLDER int deviceinfo_get_identifying_data(deviceinfo_identifying_data_t**)
{
    errno = ENOTSUP;
    return -1;
}

PLACEHOLDER void deviceinfo_free_identifying_data(deviceinfo_identifying_data_t**)
{
    errno = ENOTSUP;
}

PLACEHOLDER int navigator_request_events(int)
{
    errno = ENOTSUP;
    return -1;
}

PLACEHOLDER int navigator_get_domain()
{
    errno = ENOTSUP;
    return -1;
}

PLACEHOLDER int navigator_invoke(const char*, char**)
{
    errno = ENOTSUP;
    return -1;
}

PLACEHOLDER int navigator_open_file(const char*, char**)
{
    errno = ENOTSUP;
    return -1;
}

PLACEHOLDER int navigator_add_uri(const char*, const char*, const char*, const char*, char**)
{
    errno = ENOTSUP;
    return -1;
}

PLACEHOLDER int navigator_extend_timeout(int, char**)
{
    errno = ENOTSUP;
    return -1;
}

PLACEHOLDER int navigator_request_swipe_start()
{
    errno = ENOTSUP;
    return -1;
}

PLACEHOLDER int navigator_stop_swipe_start()
{
    errno = ENOTSUP;
    return -1;
}

PLACEHOLDER int navigator_rotation_lock(bool)
{
    errno = ENOTSUP;
    return -1;
}

PLACEHOLDER int navigator_set_orientation(int, char**)
{
    errno = ENOTSUP;
    return -1;
}

PLACEHOLDER int navigator_set_window_angle(int)
{
    errno = ENOTSUP;
    return -1;
}

PLACEHOLDER int navigator_set_close_prompt(const char*, const char*)
{
    errno = ENOTSUP;
    return -1;
}

PLACEHOLDER int navigator_clear_close_prompt()
{
    errno = ENOTSUP;
    return -1;
}

PLACEHOLDER int navigator_set_badge(navigator_badge_t)
{
    errno = ENOTSUP;
    return -1;
}

PLACEHOLDER int navigator_clear_badge()
{
    errno = ENOTSUP;
    return -1;
}

PLACEHOLDER int navigator_event_get_window_state(const zel_event_t*)
{
    errno = ENOTSUP;
    return -1;
}

PLACEHOLDER const char* navigator_event_get_groupid(const zel_event_t*)
{
    errno = ENOTSUP;
    return nullptr;
}

PLACEHOLDER int navigator_event_get_orientation_angle(const zel_event_t*)
{
    errno = ENOTSUP;
    return -1;
}

PLACEHOLDER const char* navigator_event_get_data(const zel_event_t*)
{
    errno = ENOTSUP;
    return nullptr;
}

PLACEHOLDER const char* navigator_event_get_id(const zel_event_t*)
{
    errno = ENOTSUP;
    return nullptr;
}

PLACEHOLDER const char* navigator_event_get_err(const zel_event_t*)
{
    errno = ENOTSUP;
    return nullptr;
}

PLACEHOLDER int navigator_orientation_check_response(const zel_event_t*, bool)
{
    errno = ENOTSUP;
    return -1;
}

PLACEHOLDER int navigator_orientation_check_response_id(const char*, bool)
{
    errno = ENOTSUP;
    return -1;
}

PLACEHOLDER int navigator_done_orientation(const zel_event_t*)
{
    errno = ENOTSUP;
    return -1;
}

PLACEHOLDER int navigator_done_orientation_id(const char*)
{
    errno = ENOTSUP;
    return -1;
}

PLACEHOLDER int screen_request_events(int)
{
    errno = ENOTSUP;
    return -1;
}

PLACEHOLDER int screen_get_domain()
{
    errno = ENOTSUP;
    return -1;
}

PLACEHOLDER int screen_stop_events(int)
{
    errno = ENOTSUP;
    return -1;
}

PLACEHOLDER screen_event_t screen_event_get_event(const zel_event_t*)
{
    errno = ENOTSUP;
    return nullptr;
}
