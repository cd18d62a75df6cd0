// SPDX-License-Identifier: Apache-2.0
#include "services/navigator/NavigatorEvent.h"

#include <gtest/gtest.h>

#include <array>

using namespace tamobox;

namespace {

std::string textOf(const NavigatorEvent& event)
{
    MessageWriter message;
    event.writeTo(message);
    return message.text();
}

TEST(NavigatorEventTest, EachCodeHasItsName)
{
    constexpr std::array<const char*, 15> names = {"invoke",
                                                   "exit",
                                                   "windowState",
                                                   "swipeDown",
                                                   "swipeStart",
                                                   "lowMemory",
                                                   "orientationCheck",
                                                   "orientation",
                                                   "back",
                                                   "windowActive",
                                                   "windowInactive",
                                                   "orientationEnd",
                                                   "orientationResult",
                                                   "windowLock",
                                                   "windowUnlock"};
    for (std::size_t i = 0; i < names.size(); ++i) {
        NavigatorEvent event;
        event.code = static_cast<int>(i) + 1;
        EXPECT_EQ(textOf(event), std::string("msg::") + names[i] + '\n');
    }
}

TEST(NavigatorEventTest, CodeWithoutANameIsSentAsItIs)
{
    for (const int code : {0, -1, 16, 2147483647}) {
        NavigatorEvent event;
        event.code = code;
        EXPECT_EQ(textOf(event), "msg::event\ncode:n:" + std::to_string(code) + '\n');
    }
}

TEST(NavigatorEventTest, OnlyWhatIsSetIsSent)
{
    NavigatorEvent event(EventCode::Back);
    event.state = 0;
    event.angle = -90;
    event.data = "";
    event.id = "i";
    event.err = "two\nlines";
    event.group = "g";
    EXPECT_EQ(textOf(event), "msg::back\nstate:n:0\nangle:n:-90\ndata::\nid::i\nerr::two\\nlines\n"
                             "group::g\n");
}

} // namespace
