// SPDX-License-Identifier: Apache-2.0
#include <tamomock/ZelVirtualKeyboardImpl.h>

namespace tamomock {

ZelVirtualKeyboardImpl::~ZelVirtualKeyboardImpl() = default;

int ZelVirtualKeyboardImpl::requestEvents(int flags)
{
    return virtualkeyboard_request_events(flags);
}

int ZelVirtualKeyboardImpl::getDomain()
{
    return virtualkeyboard_get_domain();
}

int ZelVirtualKeyboardImpl::show()
{
    return virtualkeyboard_show();
}

int ZelVirtualKeyboardImpl::hide()
{
    return virtualkeyboard_hide();
}

int ZelVirtualKeyboardImpl::changeOptions(virtualkeyboard_layout_t layout,
                                          virtualkeyboard_enter_t enter)
{
    return virtualkeyboard_change_options(layout, enter);
}

int ZelVirtualKeyboardImpl::getHeight(int* height)
{
    return virtualkeyboard_get_height(height);
}

int ZelVirtualKeyboardImpl::eventGetHeight(const zel_event_t* event)
{
    return virtualkeyboard_event_get_height(event);
}

} // namespace tamomock
