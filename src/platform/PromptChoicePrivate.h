// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_PLATFORM_PROMPTCHOICEPRIVATE_H
#define TAMO_PLATFORM_PROMPTCHOICEPRIVATE_H

#include <tamo/platform/PromptChoice.h>

#include <QtCore/QObject>
#include <QtCore/QString>
#include <QtCore/QUuid>
#include <QtCore/QVariantMap>

namespace tamo {
namespace platform {

/** A PromptChoice's values. Without a parent until the choice is moved to another thread, its child
 * from then on. */
class PromptChoicePrivate : public QObject
{
    Q_OBJECT

public:
    explicit PromptChoicePrivate(PromptChoice* choice);

    /** Makes the description of what the choice is now. */
    void describe();

    PromptChoice* const q;
    const QString id = QUuid::createUuid().toString();
    QString label;
    QString metadata;
    /** The choice as an element of a Notify message. */
    QVariantMap description;

public Q_SLOTS:
    void onSelectedBroadcast(const QString& id, const QString& notificationMetadata,
                             const QString& label, const QString& metadata);
};

} // namespace platform
} // namespace tamo

#endif
