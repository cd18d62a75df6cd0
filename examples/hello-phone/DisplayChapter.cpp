// SPDX-License-Identifier: Apache-2.0
#include "DisplayChapter.h"

#include "report.h"

#include <tamo/device/Display.h>

using tamo::device::DisplayManager;

DisplayChapter::DisplayChapter()
{
    // With a receiver in this thread, since the signals come from the thread of the events.
    QObject::connect(&m_manager, &DisplayManager::displayAttached, &m_manager, [this](int id) {
        const QSize size = m_manager.getDisplay(id)->pixelSize();
        report(QStringLiteral("display %1: attached, %2 x %3")
                   .arg(id)
                   .arg(size.width())
                   .arg(size.height()));
    });
    QObject::connect(&m_manager, &DisplayManager::displayDetached, &m_manager,
                     [](int id) { report(QStringLiteral("display %1: detached").arg(id)); });
}
