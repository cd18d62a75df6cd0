// SPDX-License-Identifier: Apache-2.0
#ifndef SCREEN_CONTEXT_H
#define SCREEN_CONTEXT_H

#include "Display.h"

#include <cstddef>
#include <mutex>
#include <optional>
#include <unordered_map>
#include <vector>

namespace screen {

/**
 * A context: every display that it was ever told of, and which of them the last count was of. A
 * display's place in it never changes. May be used by several threads at once.
 */
class Context
{
public:
    explicit Context(int number) : m_number(number) {}

    int number() const { return m_number; }

    /**
     * Reads the displays as they are now, and takes them for the listed ones.
     *
     * @return 0 or an `errno` value of readDisplayObject(); nothing has changed then
     */
    int count(std::size_t& result);

    /** The places of the displays that the last count() was of. */
    std::vector<std::size_t> listed() const;

    /** Takes a later reading of the displays. The listed ones stay. */
    void take(std::vector<Display> reading);

    /** Puts displays into it whose ids were never listed; those that were stay as they are. */
    void addUnknown(std::vector<Display> displays);

    /** The display at a place; none where nothing was ever put there. */
    std::optional<Display> display(std::size_t place) const;

    /** The place of the display with an id; none where it was never put there. */
    std::optional<std::size_t> place(int id) const;

private:
    std::vector<std::size_t> merge(std::vector<Display> reading);

    const int m_number;
    // Held during a reading, too, so that an earlier one is not taken after a later one. Nothing
    // else is locked meanwhile.
    mutable std::mutex m_mutex;
    std::vector<Display> m_displays;
    std::unordered_map<int, std::size_t> m_places;
    std::vector<std::size_t> m_listed;
};

} // namespace screen

#endif
