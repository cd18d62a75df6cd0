// SPDX-License-Identifier: Apache-2.0
#include "NavigatorRequest.h"

#include "NavigatorControl.h"

#include <cerrno>

namespace zel {

NavigatorRequest::NavigatorRequest(const char* message)
{
    pps_encoder_initialize(&m_encoder, false);
    add("msg", message);
}

NavigatorRequest::~NavigatorRequest()
{
    pps_encoder_cleanup(&m_encoder);
}

void NavigatorRequest::note(int result)
{
    if (result != 0 && m_error == 0)
        m_error = errno;
}

NavigatorRequest& NavigatorRequest::add(const char* name, const char* text)
{
    note(pps_encoder_add_string(&m_encoder, name, text));
    return *this;
}

NavigatorRequest& NavigatorRequest::add(const char* name, int number)
{
    note(pps_encoder_add_int(&m_encoder, name, number));
    return *this;
}

NavigatorRequest& NavigatorRequest::add(const char* name, bool boolean)
{
    note(pps_encoder_add_bool(&m_encoder, name, boolean));
    return *this;
}

int NavigatorRequest::send()
{
    if (m_error)
        return m_error;
    const char* const text = pps_encoder_buffer(&m_encoder);
    if (!text)
        return errno;
    return NavigatorControl::instance().send(text, pps_encoder_length(&m_encoder));
}

} // namespace zel
