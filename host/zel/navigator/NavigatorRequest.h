// SPDX-License-Identifier: Apache-2.0
#ifndef ZEL_NAVIGATOR_NAVIGATORREQUEST_H
#define ZEL_NAVIGATOR_NAVIGATORREQUEST_H

#include <pps/encoder.h>

#include <string>

namespace zel {

/** A request to the navigator, put together and sent. What is wrong is told at the end, by send().
 */
class NavigatorRequest
{
public:
    explicit NavigatorRequest(const char* message);
    ~NavigatorRequest();
    NavigatorRequest(const NavigatorRequest&) = delete;
    NavigatorRequest& operator=(const NavigatorRequest&) = delete;

    NavigatorRequest& add(const char* name, const char* text);
    NavigatorRequest& add(const char* name, int number);
    NavigatorRequest& add(const char* name, bool boolean);

    /** 0 or an `errno` value; as NavigatorControl::send(), EINVAL (a text is NULL or not UTF-8), or
     * ENOMEM. */
    int send();

private:
    void note(int result);

    pps_encoder_t m_encoder;
    int m_error = 0;
};

} // namespace zel

#endif
