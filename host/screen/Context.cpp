// SPDX-License-Identifier: Apache-2.0
#include "Context.h"

#include "DisplayObject.h"

#include <utility>

namespace screen {

int Context::count(std::size_t& result)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    std::vector<Display> reading;
    if (const int error = readDisplayObject(reading))
        return error;
    m_listed = merge(std::move(reading));
    result = m_listed.size();
    return 0;
}

std::vector<std::size_t> Context::listed() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_listed;
}

void Context::take(std::vector<Display> reading)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    merge(std::move(reading));
}

void Context::addUnknown(std::vector<Display> displays)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_displays.reserve(m_displays.size() + displays.size());
    for (Display& display : displays)
        if (m_places.try_emplace(display.id, m_displays.size()).second)
            m_displays.push_back(std::move(display));
}

std::optional<Display> Context::display(std::size_t place) const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (place >= m_displays.size())
        return std::nullopt;
    return m_displays[place];
}

std::optional<std::size_t> Context::place(int id) const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    const auto found = m_places.find(id);
    if (found == m_places.end())
        return std::nullopt;
    return found->second;
}

// Works on copies, so that running out of memory leaves everything as it was.
std::vector<std::size_t> Context::merge(std::vector<Display> reading)
{
    std::vector<Display> displays = m_displays;
    std::unordered_map<int, std::size_t> places = m_places;
    std::vector<std::size_t> placesOfReading;
    for (Display& display : displays)
        display.isAttached = false;
    for (Display& display : reading) {
        const auto [known, isNew] = places.try_emplace(display.id, displays.size());
        placesOfReading.push_back(known->second);
        if (isNew)
            displays.push_back(std::move(display));
        else
            displays[known->second] = std::move(display);
    }
    m_displays.swap(displays);
    m_places.swap(places);
    return placesOfReading;
}

} // namespace screen
