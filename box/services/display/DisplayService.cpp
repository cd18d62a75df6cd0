// SPDX-License-Identifier: Apache-2.0
#include "DisplayService.h"

#include "common/Failure.h"

#include <cerrno>

namespace tamobox {

DisplayService::DisplayService(EventLoop& loop)
    : m_displays(DisplayList::object)
    , m_control(loop, "box/display",
                {{"rotate", [this](const auto&, auto& arguments) { return rotate(arguments); }},
                 {"attach", [this](const auto&, auto& arguments) { return attach(arguments); }},
                 {"detach", [this](const auto&, auto& arguments) { return detach(arguments); }}},
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

DisplayService::Outcome DisplayService::attach(MessageReader& arguments)
{
    DisplayList list = DisplayList::published();
    list.attach(arguments);
    try {
        publish(list);
    } catch (const ObjectFailure& failure) {
        if (failure.error() == EFBIG)
            throw Failure("there is no room for another display: " + std::string(failure.what()));
        throw;
    }
    return Outcome::Done;
}

DisplayService::Outcome DisplayService::detach(MessageReader& arguments)
{
    const std::optional<int> id = arguments.integer("id");
    if (!id)
        throw Failure("id must be a display's number");
    DisplayList list = DisplayList::published();
    list.detach(*id);
    publish(list);
    return Outcome::Done;
}

void DisplayService::publish(const DisplayList& list)
{
    m_displays.publish([&](MessageWriter& message) { list.write(message); });
}

} // namespace tamobox
