// SPDX-License-Identifier: Apache-2.0
#include "WakeList.h"

#include "OpenFile.h"

#include <algorithm>

namespace ppsfs {

void WakeList::remove(const OpenFile& file)
{
    m_files.erase(std::remove(m_files.begin(), m_files.end(), &file), m_files.end());
}

void WakeList::serve()
{
    // By index: serving a file may add others.
    for (std::size_t i = 0; i < m_files.size(); ++i)
        m_files[i]->serveWaiting();
    m_files.clear();
}

} // namespace ppsfs
