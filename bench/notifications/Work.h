// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_BENCH_WORK_H
#define TAMO_BENCH_WORK_H

#include <QObject>
#include <QString>
#include <QVariantMap>

namespace tamobench {

/** Emits a map, as a channel does. */
class Announcer : public QObject
{
    Q_OBJECT

Q_SIGNALS:
    void announced(const QVariantMap& map);
};

/** What a bystander does at the least: it gets the map, and compares two strings. */
class Comparer : public QObject
{
    Q_OBJECT

public:
    Comparer(const QString& own, const QString& other) : m_own(own), m_other(other) {}

    bool isEqual = false;

public Q_SLOTS:
    void compare(const QVariantMap&) { isEqual = m_own == m_other; }

private:
    const QString m_own;
    const QString m_other;
};

} // namespace tamobench

#endif
