// SPDX-License-Identifier: Apache-2.0
#include "RecordPages.h"

#include "pps/MessageReader.h"
#include "pps/ObjectCreation.h"

#include <algorithm>
#include <cerrno>
#include <charconv>

namespace tamobox {

namespace {

// How often a record had moved, on any page, when the last one moved to this one.
constexpr const char* movesAttribute = "moves";

/** Hands out the records of a page's text, and returns its moves. */
template<typename Handler>
double readPage(const std::string& text, const std::string& name, Handler handle)
{
    MessageReader reader(text);
    if (!reader.enter(('@' + name).c_str()))
        return 0;
    while (reader.next()) {
        const std::string attribute = reader.name();
        int number = 0;
        const char* const end = attribute.data() + attribute.size();
        const auto result = std::from_chars(attribute.data(), end, number);
        const auto value = reader.string(nullptr);
        if (result.ec == std::errc() && result.ptr == end && value)
            handle(number, *value);
    }
    return reader.number(movesAttribute).value_or(0);
}

} // namespace

RecordPages::RecordPages(const std::string& directory) : m_directory(directory)
{
    for (;;) {
        try {
            m_pages.push_back({std::make_unique<Publisher>(pathOf(m_pages.size())), 0, 0});
        } catch (const ObjectFailure& failure) {
            if (failure.error() != ENOENT || m_pages.empty())
                throw;
            break;
        }
        std::vector<int> numbers;
        if (const auto text = m_pages.back().object->published())
            m_pages.back().moves =
                readPage(*text, std::to_string(m_pages.size() - 1),
                         [&](int number, const std::string&) { numbers.push_back(number); });
        for (const int number : numbers)
            settle(m_pages.size() - 1, number);
    }
    m_current = m_pages.size() - 1;
}

// A record that is on two pages was moving when the service was killed, and nothing has moved
// since: the page that it was moving to has the most moves.
void RecordPages::settle(std::size_t page, int number)
{
    ++m_pages[page].count;
    const auto [known, isNew] = m_pageOf.emplace(number, page);
    if (isNew)
        return;
    const std::size_t other = known->second;
    const bool isHere = m_pages[page].moves > m_pages[other].moves;
    known->second = isHere ? page : other;
    take(isHere ? other : page, number);
}

std::map<int, std::string> RecordPages::all() const
{
    std::map<int, std::string> records;
    for (std::size_t i = 0; i < m_pages.size(); ++i)
        if (const auto text = m_pages[i].object->published())
            readPage(*text, std::to_string(i),
                     [&](int number, const std::string& value) { records[number] = value; });
    return records;
}

void RecordPages::put(int number, const std::string& text)
{
    const auto known = m_pageOf.find(number);
    if (known == m_pageOf.end())
        add(number, text);
    else if (!publish(known->second, number, text, m_pages[known->second].moves))
        move(number, text);
}

void RecordPages::add(int number, const std::string& text)
{
    if (!publish(m_current, number, text, m_pages[m_current].moves)) {
        m_current = otherPage();
        if (!publish(m_current, number, text, m_pages[m_current].moves))
            throw Failure("it is too long");
    }
    m_pageOf[number] = m_current;
    ++m_pages[m_current].count;
}

void RecordPages::move(int number, const std::string& text)
{
    double moves = 1;
    for (const Page& page : m_pages)
        moves = std::max(moves, page.moves + 1);
    const std::size_t from = m_pageOf.at(number);
    std::size_t to = m_current;
    if (to == from || !publish(to, number, text, moves)) {
        to = otherPage();
        if (!publish(to, number, text, moves))
            throw Failure("it is too long to be changed");
        m_current = to;
    }
    m_pageOf[number] = to;
    ++m_pages[to].count;
    take(from, number);
}

void RecordPages::erase(int number)
{
    const auto known = m_pageOf.find(number);
    if (known == m_pageOf.end())
        return;
    take(known->second, number);
    m_pageOf.erase(known);
}

void RecordPages::take(std::size_t page, int number)
{
    m_pages[page].object->publish(
        [&](MessageWriter& message) { message.remove(std::to_string(number).c_str()); });
    --m_pages[page].count;
}

bool RecordPages::publish(std::size_t page, int number, const std::string& text, double moves)
{
    try {
        m_pages[page].object->publish([&](MessageWriter& message) {
            message.add(std::to_string(number).c_str(), text);
            if (moves != m_pages[page].moves)
                message.add(movesAttribute, moves);
        });
    } catch (const ObjectFailure& failure) {
        if (failure.error() != EFBIG)
            throw;
        return false;
    }
    m_pages[page].moves = moves;
    return true;
}

// One that has been emptied, or a new one.
std::size_t RecordPages::otherPage()
{
    for (std::size_t i = 0; i < m_pages.size(); ++i)
        if (m_pages[i].count == 0)
            return i;
    createObject(pathOf(m_pages.size()), 0600);
    m_pages.push_back({std::make_unique<Publisher>(pathOf(m_pages.size())), 0, 0});
    return m_pages.size() - 1;
}

std::string RecordPages::pathOf(std::size_t page) const
{
    return m_directory + '/' + std::to_string(page);
}

} // namespace tamobox
