// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_RECORDPAGES_H
#define TAMOBOX_RECORDPAGES_H

#include "services/Publisher.h"

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace tamobox {

/**
 * Numbered texts that outlive a service, but not the box: attributes of the objects `0`, `1`, ...
 * in a directory of `/pps`, as many as it takes, as each object holds only so much.
 */
class RecordPages
{
public:
    /** Goes on with what is there. @param directory below `/pps`; its object `0` is there. Throws
     * ObjectFailure. */
    explicit RecordPages(const std::string& directory);

    /** The texts, by number. Reads them anew. Throws ObjectFailure. */
    std::map<int, std::string> all() const;

    /**
     * Puts a text under a number. Whoever reads the pages finds the text of before or this one,
     * whenever the service is killed: one that moves to a page with room is published there before
     * it is taken out of the other, and counts from then on.
     *
     * @throws Failure where it is too long for any page, and ObjectFailure
     */
    void put(int number, const std::string& text);

    /** Takes a text away; one that is not there is no error. Throws ObjectFailure. */
    void erase(int number);

private:
    struct Page
    {
        std::unique_ptr<Publisher> object;
        int count = 0;
        double moves = 0; // the higher, the later a record has moved here
    };

    /** Publishes a text on a page; false where it has no room. */
    bool publish(std::size_t page, int number, const std::string& text, double moves);
    void add(int number, const std::string& text);
    void move(int number, const std::string& text);
    void take(std::size_t page, int number);
    void settle(std::size_t page, int number);
    std::size_t otherPage();
    std::string pathOf(std::size_t page) const;

    std::string m_directory;
    std::vector<Page> m_pages;
    std::size_t m_current = 0; // where new ones go
    std::map<int, std::size_t> m_pageOf;
};

} // namespace tamobox

#endif
