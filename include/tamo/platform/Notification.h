// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_PLATFORM_NOTIFICATION_H
#define TAMO_PLATFORM_NOTIFICATION_H

#include <tamo/device/LedColor.h>
#include <tamo/export.h>
#include <tamo/platform/NotificationTextMode.h>
#include <tamo/platform/PromptChoice.h>

#include <QtCore/QDateTime>
#include <QtCore/QObject>
#include <QtCore/QString>
#include <QtCore/QUrl>
#include <QtQml/QQmlListProperty>

#include <memory>

/** The name that the type had before. */
template<typename T>
using QDeclarativeListProperty = QQmlListProperty<T>;

namespace tamo {
namespace platform {

class NotificationPrivate;

/**
 * A notification: notify() posts it, and posts it again with the values that it has then; cancel(),
 * and its end, withdraw it. What the user does with it comes back in a signal.
 *
 * **Choices.** A notification may offer answers, its choices: the PromptChoices whose parent it is.
 * They come with PromptChoice's constructor, QObject::setParent(), appendPromptChoice() or from
 * QML, and are the notification's own. A choice leaves when it gets another parent and when it is
 * deleted, however that comes; it may be at any time, inside of a slot of its own too. Construct
 * both after the QCoreApplication, without which no parent hears of its children.
 *
 * **Exceptions.** An answer of the service's that is neither an invocation, nor an expiry, nor an
 * acknowledgement makes the slot that receives it throw
 * `NotificationException("Unknown response received")`. It comes out of the event loop: an
 * application that does not catch it ends. So does what an application's own slots throw. Catch it
 * in QCoreApplication::notify():
 *
 *     bool notify(QObject* receiver, QEvent* event) override
 *     {
 *         try {
 *             return QCoreApplication::notify(receiver, event);
 *         } catch (const tamo::platform::NotificationException& exception) {
 *             std::cerr << exception.what() << '\n';
 *             return false;
 *         }
 *     }
 *
 * Everything can be used as before then, and the next answer arrives. Nobody else misses the one
 * that was thrown for: an answer is for one notification alone.
 *
 * **QML.** The application registers the types, under names of its own:
 *
 *     qmlRegisterType<Notification>("Phone", 1, 0, "Notification");
 *     qmlRegisterType<PromptChoice>("Phone", 1, 0, "PromptChoice");
 *     qmlRegisterUncreatableType<LedColor>("Phone", 1, 0, "LedColor", "values only");
 *     qmlRegisterUncreatableType<NotificationTextMode>("Phone", 1, 0, "TextMode", "values only");
 *
 * and links Qt Qml itself; libtamo does not. Choices are written inside of the notification.
 *
 * **Threads.** A notification is used in the thread that it lives in, which needs an event loop for
 * answers. It may be moved to another thread, with its choices. Operations on choices, and
 * notify(), may be called in another thread at the same time: each holds a recursive lock,
 * appendPromptChoice() and clearPromptChoices() for their whole run, notify() while it looks at the
 * choices. A choice is appended and deleted in the notification's thread, and a pointer to one from
 * promptChoiceAt() is good for as long as nothing there deletes it.
 *
 * Messages go through `tamomock::NotificationPpsChannel`, the one that is current at construction;
 * what that says of threads goes for every Notification that uses it.
 *
 * @since 0.1
 */
class TAMO_EXPORT Notification : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("DefaultProperty", "choices")
    Q_PROPERTY(QString body READ body WRITE setBody RESET resetBody NOTIFY bodyChanged)
    Q_PROPERTY(tamo::device::LedColor::Type ledColor READ ledColor WRITE setLedColor RESET
                   resetLedColor NOTIFY ledColorChanged)
    Q_PROPERTY(tamo::platform::NotificationTextMode::Type textMode READ textMode WRITE setTextMode
                   RESET resetTextMode NOTIFY textModeChanged)
    Q_PROPERTY(QDateTime time READ time WRITE setTime RESET resetTime NOTIFY timeChanged)
    Q_PROPERTY(
        int duration READ duration WRITE setDuration RESET resetDuration NOTIFY durationChanged)
    Q_PROPERTY(QUrl icon READ icon WRITE setIcon RESET resetIcon NOTIFY iconChanged)
    Q_PROPERTY(QString sound READ sound WRITE setSound RESET resetSound NOTIFY soundChanged)
    Q_PROPERTY(
        QString metadata READ metadata WRITE setMetadata RESET resetMetadata NOTIFY metadataChanged)
    Q_PROPERTY(QQmlListProperty<tamo::platform::PromptChoice> choices READ qmlPromptChoices)

public:
    /**
     * A notification with an identifier of its own, that is not posted yet.
     *
     * @throws NotificationException("Notification system is malfunctioning") where there is no
     *         channel
     * @throws tamo::Exception where the notification service's object cannot be opened
     */
    explicit Notification(QObject* parent = nullptr);

    /** Withdraws the notification, posted or not. Its choices go with it. */
    ~Notification() override;

    // Each setter emits the signal of its property where the new value is another one; a null and
    // an empty string are the same in this. Each reset sets the value that was there at first.

    /** The text; null at first. */
    QString body() const;
    void setBody(const QString& body);
    void resetBody();

    /** The colour in which the LED flashes for it; LedColor::None, at first, for not at all. */
    tamo::device::LedColor::Type ledColor() const;
    void setLedColor(tamo::device::LedColor::Type color);
    void resetLedColor();

    /** How the body is written; PlainText at first. */
    NotificationTextMode::Type textMode() const;
    void setTextMode(NotificationTextMode::Type mode);
    void resetTextMode();

    /** The time that the notification is about; null, at first, for none. */
    QDateTime time() const;
    void setTime(const QDateTime& time);
    void resetTime();

    /** After how many seconds, counted from notify(), it expires; 0, at first, for never. What is
     * set is brought into the range from 0 to 31536000, a year. */
    int duration() const;
    void setDuration(int seconds);
    void resetDuration();

    /** A picture, as the URL of a local file; empty, at first, for none. Any other URL is not told
     * to the service. */
    QUrl icon() const;
    void setIcon(const QUrl& icon);
    void resetIcon();

    /** The URL of a sound; null, at first, for none. */
    QString sound() const;
    void setSound(const QString& sound);
    void resetSound();

    /** A text of the application's own, which comes back in each signal; null, at first, for
     * none. */
    QString metadata() const;
    void setMetadata(const QString& metadata);
    void resetMetadata();

    /**
     * Posts the notification, or posts it anew. Whether the service gets it is not told.
     *
     * @throws tamo::Exception where a text holds what a PPS object cannot carry (a NUL character,
     *         half a surrogate pair); nothing is posted then. Where the channel lives in another
     *         thread, the exception is thrown in that thread's event loop.
     */
    Q_INVOKABLE void notify();

    /** Withdraws the notification, posted or not. It can be posted again. */
    Q_INVOKABLE void cancel();

    /**
     * Adds a choice at the end, and makes the notification its parent. A choice that is there
     * already stays where it is; null is ignored. A choice of another thread is refused with a
     * warning.
     */
    void appendPromptChoice(PromptChoice* choice);

    /** Takes away all choices and has them deleted, later, by the event loop. */
    void clearPromptChoices();

    int countPromptChoices() const;

    /** The choice at a place from 0; null where there is none. */
    PromptChoice* promptChoiceAt(int index) const;

    /** The choices for QML, which may append, count, look at and clear them. */
    QDeclarativeListProperty<tamo::platform::PromptChoice> qmlPromptChoices();

Q_SIGNALS:
    // The receiver of any signal may delete the notification.

    /** The user has seen it, without picking a choice. */
    void acknowledged(const QString& metadata);

    /** The user has opened it. */
    void invoked(const QString& metadata);

    /** Its duration is over. */
    void expired(const QString& metadata);

    void bodyChanged(const QString& value);
    void ledColorChanged(tamo::device::LedColor::Type value);
    void textModeChanged(tamo::platform::NotificationTextMode::Type value);
    void timeChanged(const QDateTime& value);
    void durationChanged(int value);
    void iconChanged(const QUrl& value);
    void soundChanged(const QString& value);
    void metadataChanged(const QString& value);

protected:
    bool event(QEvent* event) override;
    void childEvent(QChildEvent* event) override;

private:
    const std::unique_ptr<NotificationPrivate> d;
};

} // namespace platform
} // namespace tamo

#endif
