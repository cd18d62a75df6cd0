// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_DISPLAYLIST_H
#define TAMOBOX_DISPLAYLIST_H

#include "Display.h"

#include "pps/MessageReader.h"
#include "pps/MessageWriter.h"

#include <optional>
#include <string>
#include <vector>

namespace tamobox {

/** All displays of the phone, in the order in which they came. */
class DisplayList
{
public:
    /** The object that holds it. */
    static constexpr const char* object = "services/screen/displays";

    /** A phone's displays at first: the one that is built in. */
    static DisplayList builtIn();

    /**
     * Reads the text of the object. Nothing where it does not say which displays there are.
     *
     * @throws Failure where it is malformed, or one display in it is, so that nothing that somebody
     * wrote there is overlooked and lost
     */
    static std::optional<DisplayList> fromMessage(const std::string& message);

    /**
     * The displays that are published in the box that this process is in; builtIn() where none are,
     * as applications have it.
     *
     * @throws Failure as fromMessage(), and ObjectFailure
     */
    static DisplayList published();

    const std::vector<Display>& displays() const { return m_displays; }

    /** Adds all displays to a message about the object. */
    void write(MessageWriter& message) const;

    /**
     * Turns a display.
     *
     * @param id nothing: the first internal one
     * @param rotation degrees
     * @throws Failure, and nothing has changed: there is no such display, or it is not attached;
     * another rotation than 0, 90, 180 or 270
     */
    void rotate(std::optional<int> id, int rotation);

    /**
     * Attaches a display. One that was there before comes back as it was; another one comes at the
     * end of the list, as 1920 x 1080 pixels, external, detachable, "Display" and its number, of
     * unknown physical size, at rotation 0. What the message says of it counts before that.
     *
     * @param message stands in an object of a display's members, of which `id` must be there
     * @throws Failure, and nothing has changed: one of them is malformed, or the name is too long;
     * it is attached already
     */
    void attach(const MessageReader& message);

    /**
     * Detaches a display; it stays in the list.
     *
     * @throws Failure, and nothing has changed: there is no such display, it is not attached, or
     * not detachable
     */
    void detach(int id);

private:
    Display& find(std::optional<int> id);
    std::string knownIds() const;

    std::vector<Display> m_displays;
};

} // namespace tamobox

#endif
