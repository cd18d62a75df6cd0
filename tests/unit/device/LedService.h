// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_TESTS_LEDSERVICE_H
#define TAMO_TESTS_LEDSERVICE_H

#include "SubstituteChannel.h"

#include <tamomock/LedPpsChannel.h>

#include <QString>
#include <QStringList>

namespace tamotest {

/** The LED service, as the process's Leds see it. */
class LedService : public SubstituteChannel<tamomock::LedPpsChannel>
{
public:
    /** A status with these components on, such as "red blue", and the others off. */
    static QVariantMap status(const QString& lit)
    {
        QVariantMap components;
        for (const char* component : {"red", "green", "blue"})
            components.insert(component, lit.split(' ').contains(component) ? "on" : "off");
        return {{"@status", components}};
    }

    void show(const QString& lit) { receive(status(lit)); }
};

/** The requester's id in a request. */
inline QString idIn(const QVariantMap& request)
{
    return request.value("dat").toMap().value("id").toString();
}

} // namespace tamotest

#endif
