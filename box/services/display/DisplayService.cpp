// SPDX-License-Identifier: Apache-2.0
#include "DisplayService.h"

#include "common/Failure.h"

namespace tamobox {

DisplayService::DisplayService(EventLoop& loop)
    : m_displays(DisplayList::object)
    , m_control(loop, "box/display",
                {{"rotate", [this](const auto&, auto& arguments) { return rotate(arguments); }}},
                [](MailboxServer::Client) {})
{
    // Whatever is there stays, also what cannot be read: a command then says what is wrong with it.
    if (!m_displays.published())
        publish(DisplayList::builtIn());
}

DisplayService::Outcome DisplayService::rotate(MessageReader& arguments)
{
    const std::optional<int> id = arguments.integer("id");
    if (arguments.has("id") && !id)
        throw Failure("id must be a display's number");
    const std::optional<int> rotation = arguments.integer("rotation");
    if (!rotation)
        throw Failure("rotation must be 0, 90, 180 or 270");
    DisplayList list = DisplayList::published();
    list.rotate(id, *rotation);
    publish(list);
    return Outcome::Done;
}

void DisplayService::publish(const DisplayList& list)
{
    m_displays.publish([&](MessageWriter& message) { list.write(message); });
}

} // namespace tamobox
