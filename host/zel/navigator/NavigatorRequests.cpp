// SPDX-License-Identifier: Apache-2.0
#include "NavigatorRequest.h"

#include "common/Call.h"

#include <zel/navigator.h>

#include <unistd.h>

#include <atomic>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>

using zel::NavigatorRequest;

namespace {

constexpr int MaxExtensionMs = 30'000;

struct Explanation
{
    int error;
    const char* text;
};

constexpr Explanation Explanations[] = {
    {EINVAL, "An argument is missing, empty, outside its range, or not UTF-8."},
    {ENOENT, "There is no navigator: /pps/services/navigator/control does not exist."},
    {EPIPE, "The navigator is not running."},
    {EAGAIN, "The navigator has too many requests that it has not read yet. Try again later."},
    {EACCES, "The application may not send requests to the navigator."},
    {EFBIG, "The request is longer than the navigator can be sent."},
};

char* explain(int error)
{
    for (const Explanation& explanation : Explanations) {
        if (explanation.error == error)
            return strdup(explanation.text);
    }
    return nullptr;
}

/** Runs the body of a C function that tells in words what went wrong. */
template<class Body>
int explainedCall(char** explanation, Body&& body)
{
    return host::call([&] {
        if (explanation)
            *explanation = nullptr;
        const int error = body();
        if (error && explanation)
            *explanation = explain(error);
        return error;
    });
}

bool isAngle(int angle)
{
    return angle == 0 || angle == 90 || angle == 180 || angle == 270;
}

bool isEmpty(const char* text)
{
    return !text || !*text;
}

/** A path that another process can open, too: relative ones begin at this process' directory. */
std::string absolutePath(const char* path)
{
    if (*path == '/')
        return path;
    const std::unique_ptr<char, void (*)(void*)> directory(getcwd(nullptr, 0), &std::free);
    return directory ? std::string(directory.get()) + '/' + path : std::string(path);
}

struct Free
{
    void operator()(char* text) const { std::free(text); }
};

/** A request's id, which no other request of the process has. */
std::unique_ptr<char, Free> newId()
{
    static std::atomic<unsigned> last{0};
    std::unique_ptr<char, Free> id(strdup(std::to_string(++last).c_str()));
    if (!id)
        throw std::bad_alloc();
    return id;
}

} // namespace

int navigator_invoke(const char* url, char** error)
{
    return explainedCall(error, [&] {
        return isEmpty(url) ? EINVAL : NavigatorRequest("invoke").add("url", url).send();
    });
}

int navigator_open_file(const char* path, char** error)
{
    return explainedCall(error, [&] {
        if (isEmpty(path))
            return EINVAL;
        return NavigatorRequest("openFile").add("path", absolutePath(path).c_str()).send();
    });
}

int navigator_add_uri(const char* icon_path, const char* icon_label, const char* category,
                      const char* url, char** error)
{
    return explainedCall(error, [&] {
        if (isEmpty(icon_path) || !icon_label || isEmpty(url))
            return EINVAL;
        NavigatorRequest request("addUri");
        request.add("icon", absolutePath(icon_path).c_str()).add("label", icon_label);
        return request.add("category", category ? category : "").add("url", url).send();
    });
}

int navigator_extend_timeout(int milliseconds, char** error)
{
    return explainedCall(error, [&] {
        if (milliseconds < 1 || milliseconds > MaxExtensionMs)
            return EINVAL;
        return NavigatorRequest("extendTimeout").add("milliseconds", milliseconds).send();
    });
}

int navigator_request_swipe_start(void)
{
    return host::call([] { return NavigatorRequest("swipeStart").add("wanted", true).send(); });
}

int navigator_stop_swipe_start(void)
{
    return host::call([] { return NavigatorRequest("swipeStart").add("wanted", false).send(); });
}

int navigator_rotation_lock(bool locked)
{
    return host::call(
        [&] { return NavigatorRequest("rotationLock").add("locked", locked).send(); });
}

int navigator_set_orientation(int angle, char** id)
{
    return host::call([&] {
        if (!isAngle(angle))
            return EINVAL;
        auto requestId = newId();
        const int error = NavigatorRequest("setOrientation")
                              .add("angle", angle)
                              .add("id", requestId.get())
                              .send();
        if (!error && id)
            *id = requestId.release();
        return error;
    });
}

int navigator_set_window_angle(int angle)
{
    return host::call([&] {
        return isAngle(angle) ? NavigatorRequest("setWindowAngle").add("angle", angle).send()
                              : EINVAL;
    });
}

int navigator_set_close_prompt(const char* title, const char* message)
{
    return host::call([&] {
        return NavigatorRequest("closePrompt").add("title", title).add("message", message).send();
    });
}

int navigator_clear_close_prompt(void)
{
    return host::call([] { return NavigatorRequest("closePrompt").send(); });
}

int navigator_set_badge(navigator_badge_t badge)
{
    return host::call([&] {
        return badge == NAVIGATOR_BADGE_SPLAT
                   ? NavigatorRequest("badge").add("badge", static_cast<int>(badge)).send()
                   : EINVAL;
    });
}

int navigator_clear_badge(void)
{
    return host::call([] { return NavigatorRequest("badge").send(); });
}

int navigator_orientation_check_response(const zel_event_t* event, bool will_turn)
{
    return navigator_orientation_check_response_id(navigator_event_get_id(event), will_turn);
}

int navigator_orientation_check_response_id(const char* id, bool will_turn)
{
    return host::call([&] {
        NavigatorRequest request("orientationCheckResponse");
        return request.add("id", id).add("accept", will_turn).send();
    });
}

int navigator_done_orientation(const zel_event_t* event)
{
    return navigator_done_orientation_id(navigator_event_get_id(event));
}

int navigator_done_orientation_id(const char* id)
{
    return host::call([&] { return NavigatorRequest("orientationDone").add("id", id).send(); });
}
