// SPDX-License-Identifier: Apache-2.0
#ifndef PPSFS_ATTRIBUTETABLE_H
#define PPSFS_ATTRIBUTETABLE_H

#include "Update.h"

#include <cstddef>
#include <cstdint>
#include <list>
#include <string>
#include <string_view>
#include <unordered_map>

namespace ppsfs {

/**
 * An object's attributes: in the order of the object's text, and in the order in which they were
 * last written. Deleted ones are remembered for those who read changes, within bounds.
 *
 * Each publication has a number; they count up from 1.
 */
class AttributeTable
{
public:
    AttributeTable() = default;
    AttributeTable(const AttributeTable&) = delete;
    AttributeTable& operator=(const AttributeTable&) = delete;

    /** The size of all attribute lines in bytes. */
    std::size_t size() const { return m_size; }

    /** What size() would be after merge(), given the same arguments. */
    std::size_t sizeAfter(const Update& update, bool replace) const;

    /**
     * Merges an update.
     *
     * @param replace whether the update is all that remains
     * @param publication its number
     */
    void merge(const Update& update, bool replace, std::uint64_t publication);

    /** Whether deleted attributes are remembered; turned off, they are forgotten at once. */
    void rememberDeleted(bool remember);

    /** Forgets everything. */
    void clear();

    /** Appends the attribute lines in their order. */
    void appendTo(std::string& text) const;

    /**
     * Appends the lines that were written after a publication, deletions included, in the order in
     * which they were written.
     *
     * @return false, and nothing appended, where they are longer than `limit` or not remembered
     */
    bool appendChangesTo(std::string& text, std::uint64_t since, std::size_t limit) const;

private:
    struct Attribute;
    using Journal = std::list<Attribute*>;
    using Attributes = std::list<Attribute>;

    struct Attribute
    {
        explicit Attribute(std::string_view attributeName) : name(attributeName) {}
        bool isDeleted() const { return tail.empty(); }
        /** The size of its line, line feed included; once deleted, of the line that says so. */
        std::size_t lineSize() const { return name.size() + (isDeleted() ? 1 : tail.size()) + 1; }

        const std::string name;
        std::string tail; ///< the line after the name; empty once deleted
        std::uint64_t publication = 0;
        Journal::iterator entry;
    };

    void set(const Update::Change& change, bool moveToEnd, std::uint64_t publication);
    void remove(Attributes::iterator attribute, std::uint64_t publication);
    void touch(Attribute& attribute, std::uint64_t publication);
    void forget(Attributes& list, Attributes::iterator attribute);
    void forgetSurplus();

    Attributes m_attributes;
    Attributes m_deleted; ///< the oldest first
    Journal m_journal;    ///< attributes and deleted ones, the last written at the end
    /// The keys lie in the attributes, which never move.
    std::unordered_map<std::string_view, Attributes::iterator> m_index;
    std::size_t m_size = 0;
    std::size_t m_deletedSize = 0;
    std::uint64_t m_forgotten = 0; ///< the last publication with a deletion that is forgotten
    bool m_remember = false;
};

} // namespace ppsfs

#endif
