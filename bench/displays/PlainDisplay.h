// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_BENCH_PLAINDISPLAY_H
#define TAMO_BENCH_PLAINDISPLAY_H

#include <QSize>
#include <QString>

namespace tamobench {

/** The peer: a class whose properties are members that nobody else changes. */
class PlainDisplay
{
public:
    int displayId() const;
    bool isAttached() const;
    QSize pixelSize() const;
    QString displayName() const;

private:
    int m_id = 1;
    bool m_isAttached = true;
    QSize m_pixelSize = {768, 1280};
    QString m_name = QString::fromLatin1("Built-in display"); // shared, as any that was read
};

} // namespace tamobench

#endif
