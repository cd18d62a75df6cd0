// SPDX-License-Identifier: Apache-2.0
#include "PlainDisplay.h"

namespace tamobench {

// Called, and not inlined, as the library's are.

int PlainDisplay::displayId() const
{
    return m_id;
}

bool PlainDisplay::isAttached() const
{
    return m_isAttached;
}

QSize PlainDisplay::pixelSize() const
{
    return m_pixelSize;
}

QString PlainDisplay::displayName() const
{
    return m_name;
}

} // namespace tamobench
