// SPDX-License-Identifier: Apache-2.0
#ifndef PPSFS_UPDATE_H
#define PPSFS_UPDATE_H

#include <cstddef>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace ppsfs {

/** What one write does to an object: checked, and for each attribute its last word only. */
class Update
{
public:
    /** What becomes of one attribute; the views lie in the text that was parsed. */
    struct Change
    {
        std::string_view name;
        std::string_view tail; ///< the line after the name (`:marker:value`); empty: deleted

        bool deletes() const { return tail.empty(); }
        std::size_t lineSize() const { return name.size() + tail.size() + 1; }
    };

    /**
     * Reads the text of a write. Call it once.
     *
     * @param heading the object's own `@name`, without line feed
     * @return 0, or EINVAL where a line is malformed or none of this object's
     */
    int parse(std::string_view text, std::string_view heading);

    /** The changes, in the order in which their attributes were first named. */
    const std::vector<Change>& changes() const { return m_changes; }

    /** The change for an attribute, or null where it is not named. */
    const Change* find(std::string_view name) const;

private:
    void add(const Change& change);

    std::vector<Change> m_changes;
    std::unordered_map<std::string_view, std::size_t> m_index; ///< empty while a scan is cheaper
};

} // namespace ppsfs

#endif
