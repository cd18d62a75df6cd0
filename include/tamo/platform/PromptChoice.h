// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_PLATFORM_PROMPTCHOICE_H
#define TAMO_PLATFORM_PROMPTCHOICE_H

#include <tamo/export.h>

#include <QtCore/QObject>
#include <QtCore/QString>

#include <memory>

namespace tamo {
namespace platform {

class PromptChoicePrivate;

/**
 * An answer that a Notification offers. A choice whose parent is a Notification is one of its
 * choices; Notification says how they come and go. It is told apart from other choices by an
 * identifier of its own, which never changes: two may have the same label, and a choice that moves
 * to another notification still is what the user picked in the former one's prompt, but hears of it
 * only through the notification that it belongs to.
 *
 * A choice is used in the thread that it lives in, which is its notification's.
 *
 * @since 0.1
 */
class TAMO_EXPORT PromptChoice : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString label READ label WRITE setLabel RESET resetLabel NOTIFY labelChanged)
    Q_PROPERTY(
        QString metadata READ metadata WRITE setMetadata RESET resetMetadata NOTIFY metadataChanged)

public:
    /** A choice without a label. Where the parent is a Notification it is attached to that. */
    explicit PromptChoice(QObject* parent = nullptr);

    /** Leaves its notification first. */
    ~PromptChoice() override;

    /** The text that the user reads; null at first. */
    QString label() const;
    void setLabel(const QString& label);
    /** Sets a null string. */
    void resetLabel();

    /** A text of the application's own, which comes back in selected(); null at first. */
    QString metadata() const;
    void setMetadata(const QString& metadata);
    /** Sets a null string. */
    void resetMetadata();

Q_SIGNALS:
    void labelChanged(const QString& value);
    void metadataChanged(const QString& value);

    /**
     * The user has picked this choice. The receiver may delete the choice and the notification.
     *
     * @param notificationMetadata the notification's metadata, when it was posted
     * @param choiceLabel the choice's label, then
     * @param choiceMetadata the choice's metadata, then; empty where there was none
     */
    void selected(const QString& notificationMetadata, const QString& choiceLabel,
                  const QString& choiceMetadata);

protected:
    bool event(QEvent* event) override;

private:
    friend class NotificationPrivate;

    const std::unique_ptr<PromptChoicePrivate> d;
};

} // namespace platform
} // namespace tamo

#endif
