// SPDX-License-Identifier: Apache-2.0
#ifndef PPSFS_TOPIC_H
#define PPSFS_TOPIC_H

#include "AttributeTable.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace ppsfs {

class Subscription;

/** What is published under an object's name, and who is told. */
class Topic
{
public:
    /** @param heading the line `@name`, with its line feed */
    explicit Topic(std::string heading) : m_heading(std::move(heading)), m_removal('-' + m_heading)
    {
    }
    Topic(const Topic&) = delete;
    Topic& operator=(const Topic&) = delete;

    const std::string& heading() const { return m_heading; }

    /** The message that all before is void: `-@name`. */
    std::string_view removal() const { return m_removal; }

    /** The number of the last publication; 0: never published. */
    std::uint64_t publication() const { return m_publication; }

    /** The length of text(), which need not be built for it; 0 where nothing was published. */
    std::size_t textSize() const;

    /** The whole object. It is built when first asked for, and shared until the next publication.
     */
    std::string_view text();

    /**
     * The heading and the lines that were written since a publication; shared likewise.
     *
     * @return nothing where that is longer than an object can be
     */
    std::optional<std::string_view> changesSince(std::uint64_t publication);

    /**
     * Publishes an update and tells all subscriptions but the publisher's.
     *
     * @return 0, or EFBIG
     */
    int publish(const Update& update, bool replace, const Subscription& publisher);

    /** Forgets all that was published, as if nothing ever had been. */
    void clear();

private:
    friend class Subscription;
    void add(Subscription& subscription);
    void remove(Subscription& subscription);

    const std::string m_heading;
    const std::string m_removal;
    AttributeTable m_attributes;
    std::uint64_t m_publication = 0;
    std::vector<Subscription*> m_subscriptions;
    std::size_t m_changesReaders = 0;

    std::string m_text; ///< empty: to be built
    std::string m_changes;
    std::uint64_t m_changesFrom = 0; ///< what m_changes begins after, and
    std::uint64_t m_changesTo = 0;   ///< ends with; 0: to be built
};

} // namespace ppsfs

#endif
