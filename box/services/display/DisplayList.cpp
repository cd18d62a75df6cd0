// SPDX-License-Identifier: Apache-2.0
#include "DisplayList.h"

#include "DisplayMembers.h"

#include "common/Failure.h"
#include "pps/MessageReader.h"
#include "pps/ObjectFile.h"

#include <fcntl.h>

#include <algorithm>

namespace tamobox {

namespace {

constexpr std::size_t longestName = 128; // bytes, as the screen library has it

Display newDisplay(int id)
{
    Display display;
    display.id = id;
    display.name = "Display " + std::to_string(id);
    display.width = 1920;
    display.height = 1080;
    return display;
}

} // namespace

DisplayList DisplayList::builtIn()
{
    Display display;
    display.id = 1;
    display.name = "Built-in display";
    display.isInternal = true;
    display.isDetachable = false;
    display.width = 768;
    display.height = 1280;
    display.physicalWidth = 53;
    display.physicalHeight = 88;
    DisplayList list;
    list.m_displays = {display};
    return list;
}

std::optional<DisplayList> DisplayList::fromMessage(const std::string& message)
{
    MessageReader reader(message);
    if (!reader.enter("@displays") || !reader.has("displays"))
        return std::nullopt;
    const std::string place = "/pps/" + std::string(object) + ": ";
    if (pps_decoder_type(reader.decoder(), "displays") != PPS_TYPE_ARRAY)
        throw Failure(place + "displays must be an array");
    reader.enter("displays");
    DisplayList list;
    while (reader.next()) {
        const std::string number = "display " + std::to_string(list.m_displays.size() + 1);
        if (reader.type() != PPS_TYPE_OBJECT || !reader.enter(nullptr))
            throw Failure(place + number + " must be an object");
        try {
            list.m_displays.push_back(readDisplay(reader));
        } catch (const Failure& failure) {
            throw Failure(place + number + ": " + failure.what());
        }
        const int id = list.m_displays.back().id;
        const auto sameId = [id](const Display& display) { return display.id == id; };
        if (std::count_if(list.m_displays.begin(), list.m_displays.end(), sameId) > 1)
            throw Failure(place + number + " has the id of an earlier one");
        reader.leave();
    }
    return list;
}

DisplayList DisplayList::published()
{
    const std::optional<std::string> text = ObjectFile(object, O_RDONLY | O_NONBLOCK).read();
    std::optional<DisplayList> list;
    if (text)
        list = fromMessage(*text);
    return list ? *list : builtIn();
}

void DisplayList::write(MessageWriter& message) const
{
    message.startArray("displays");
    for (const Display& display : m_displays) {
        message.startObject(nullptr);
        writeDisplay(message, display);
        message.endObject();
    }
    message.endArray();
}

void DisplayList::rotate(std::optional<int> id, int rotation)
{
    if (rotation != 0 && rotation != 90 && rotation != 180 && rotation != 270)
        throw Failure("a display's rotation must be 0, 90, 180 or 270");
    Display& display = find(id);
    if (!display.isAttached)
        throw Failure("the display " + std::to_string(display.id) + " is not attached");
    display.rotation = rotation;
}

void DisplayList::attach(const MessageReader& message)
{
    const std::optional<int> id = message.integer("id");
    if (!id || *id < 1)
        throw Failure("the display's id must be a whole number above 0");
    const auto known = std::find_if(m_displays.begin(), m_displays.end(),
                                    [id](const Display& candidate) { return candidate.id == *id; });
    if (known != m_displays.end() && known->isAttached)
        throw Failure("the display " + std::to_string(*id) + " is attached already");
    Display display = known != m_displays.end() ? *known : newDisplay(*id);
    changeDisplay(message, display);
    if (display.name.size() > longestName)
        throw Failure("the display's name must be at most " + std::to_string(longestName) +
                      " bytes long");
    display.isAttached = true;
    if (known != m_displays.end())
        *known = display;
    else
        m_displays.push_back(display);
}

void DisplayList::detach(int id)
{
    Display& display = find(id);
    if (!display.isAttached)
        throw Failure("the display " + std::to_string(id) + " is not attached");
    if (!display.isDetachable)
        throw Failure("the display " + std::to_string(id) + " cannot be detached");
    display.isAttached = false;
}

Display& DisplayList::find(std::optional<int> id)
{
    const auto found =
        std::find_if(m_displays.begin(), m_displays.end(), [id](const Display& display) {
            return id ? display.id == *id : display.isInternal;
        });
    if (found != m_displays.end())
        return *found;
    throw Failure(id ? "there is no display " + std::to_string(*id) + "; there are: " + knownIds()
                     : "there is no internal display; say which one is meant: " + knownIds());
}

std::string DisplayList::knownIds() const
{
    std::string ids;
    for (const Display& display : m_displays)
        ids += (ids.empty() ? "" : ", ") + std::to_string(display.id);
    return ids.empty() ? "none" : ids;
}

} // namespace tamobox
