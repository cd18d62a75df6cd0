// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_PPS_SERVICEMESSAGE_H
#define TAMO_PPS_SERVICEMESSAGE_H

#include <QtCore/QString>
#include <QtCore/QVariant>

namespace tamo::detail {

/** A request to a service: its name, and a map with the requester's "id" and the arguments. */
inline QVariantMap requestMessage(const QString& name, const QVariantMap& arguments)
{
    QVariantMap message;
    message.insert(QStringLiteral("dat"), arguments);
    message.insert(QStringLiteral("msg"), name);
    return message;
}

/** What one entry of a message is made of. */
template<class Source>
struct MessageEntry
{
    QString name;
    /** The entry's value; an invalid one where the entry is left out. */
    QVariant (*value)(const Source& source);
};

/** Sets an entry in a map, or takes it out where it is left out. */
template<class Source>
void setEntry(QVariantMap& map, const MessageEntry<Source>& entry, const Source& source)
{
    const QVariant value = entry.value(source);
    if (value.isValid())
        map.insert(entry.name, value);
    else
        map.remove(entry.name);
}

/** A map that is a member of another one, without copying it; an empty one where the member is not
 * there or something else. */
inline const QVariantMap& memberMap(const QVariantMap& map, const QString& name)
{
    static const QVariantMap& none = *new QVariantMap;
    const auto found = map.constFind(name);
    if (found == map.constEnd() || found->userType() != QMetaType::QVariantMap)
        return none;
    return *static_cast<const QVariantMap*>(found->constData());
}

} // namespace tamo::detail

#endif
