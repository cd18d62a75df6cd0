// SPDX-License-Identifier: Apache-2.0
#include "NetworkTest.h"

#include <algorithm>
#include <iostream>

namespace tamotest {

ErrorCapture::ErrorCapture() : m_before(std::cerr.rdbuf(&m_text)) {}

ErrorCapture::~ErrorCapture()
{
    std::cerr.rdbuf(m_before);
}

void Notes::add(const std::string& note)
{
    const std::lock_guard lock(m_mutex);
    m_notes.push_back(note);
}

std::vector<std::string> Notes::all() const
{
    const std::lock_guard lock(m_mutex);
    return m_notes;
}

int Notes::count(const std::string& note) const
{
    const std::lock_guard lock(m_mutex);
    return static_cast<int>(std::count(m_notes.begin(), m_notes.end(), note));
}

void NetworkTest::awaitEvents()
{
    // The request for them is the first event that the dispatch thread takes.
    ASSERT_TRUE(journal.waitForCount("netStatus.requestEvents", 1));
    ASSERT_TRUE(journal.waitForCount("core.getEvent", 2));
}

void NetworkTest::deliver(int code, bool isAvailable)
{
    EventContent content;
    content.isAvailable = isAvailable;
    const int taken = journal.count("core.getEvent");
    ASSERT_TRUE(netStatus.deliver(code, content));
    ASSERT_TRUE(journal.waitForCount("core.getEvent", taken + 1));
}

} // namespace tamotest
