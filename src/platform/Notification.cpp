// SPDX-License-Identifier: Apache-2.0
#include <tamo/platform/Notification.h>

#include "NotificationPrivate.h"
#include "core/ThreadChange.h"

#include <QtCore/QChildEvent>
#include <QtCore/QMutexLocker>

#include <algorithm>

namespace tamo {
namespace platform {

using device::LedColor;

namespace {

constexpr int secondsPerYear = 31536000;

using ChoiceList = QDeclarativeListProperty<PromptChoice>;
/** How a list's length is counted: `int` with Qt 5, `qsizetype` with Qt 6. */
using ListSize = decltype(std::declval<ChoiceList::CountFunction>()(nullptr));

Notification* notificationOf(const ChoiceList* list)
{
    return qobject_cast<Notification*>(list->object);
}

void appendToList(ChoiceList* list, PromptChoice* choice)
{
    if (Notification* const notification = notificationOf(list))
        notification->appendPromptChoice(choice);
}

ListSize countOfList(ChoiceList* list)
{
    const Notification* const notification = notificationOf(list);
    return notification ? notification->countPromptChoices() : 0;
}

PromptChoice* elementOfList(ChoiceList* list, ListSize index)
{
    const Notification* const notification = notificationOf(list);
    return notification ? notification->promptChoiceAt(static_cast<int>(index)) : nullptr;
}

void clearList(ChoiceList* list)
{
    if (Notification* const notification = notificationOf(list))
        notification->clearPromptChoices();
}

} // namespace

Notification::Notification(QObject* parent)
    : QObject(parent), d(std::make_unique<NotificationPrivate>(this))
{
    // Qt 5 does not do so by itself, and would not queue the signals to another thread.
    qRegisterMetaType<LedColor::Type>();
    qRegisterMetaType<NotificationTextMode::Type>();
}

Notification::~Notification() = default;

QString Notification::body() const
{
    return d->body;
}

void Notification::setBody(const QString& body)
{
    if (d->set(NotificationPrivate::Body, d->body, body))
        Q_EMIT bodyChanged(body);
}

void Notification::resetBody()
{
    setBody(QString());
}

LedColor::Type Notification::ledColor() const
{
    return d->ledColor;
}

void Notification::setLedColor(LedColor::Type color)
{
    if (d->set(NotificationPrivate::LedColor, d->ledColor, color))
        Q_EMIT ledColorChanged(color);
}

void Notification::resetLedColor()
{
    setLedColor(LedColor::None);
}

NotificationTextMode::Type Notification::textMode() const
{
    return d->textMode;
}

void Notification::setTextMode(NotificationTextMode::Type mode)
{
    if (d->set(NotificationPrivate::TextMode, d->textMode, mode))
        Q_EMIT textModeChanged(mode);
}

void Notification::resetTextMode()
{
    setTextMode(NotificationTextMode::PlainText);
}

QDateTime Notification::time() const
{
    return d->time;
}

void Notification::setTime(const QDateTime& time)
{
    if (d->set(NotificationPrivate::Time, d->time, time))
        Q_EMIT timeChanged(time);
}

void Notification::resetTime()
{
    setTime(QDateTime());
}

int Notification::duration() const
{
    return d->duration;
}

void Notification::setDuration(int seconds)
{
    const int duration = std::clamp(seconds, 0, secondsPerYear);
    if (d->set(NotificationPrivate::Momentary, d->duration, duration))
        Q_EMIT durationChanged(duration);
}

void Notification::resetDuration()
{
    setDuration(0);
}

QUrl Notification::icon() const
{
    return d->icon;
}

void Notification::setIcon(const QUrl& icon)
{
    if (d->set(NotificationPrivate::Icon, d->icon, icon))
        Q_EMIT iconChanged(icon);
}

void Notification::resetIcon()
{
    setIcon(QUrl());
}

QString Notification::sound() const
{
    return d->sound;
}

void Notification::setSound(const QString& sound)
{
    if (d->set(NotificationPrivate::Sound, d->sound, sound))
        Q_EMIT soundChanged(sound);
}

void Notification::resetSound()
{
    setSound(QString());
}

QString Notification::metadata() const
{
    return d->metadata;
}

void Notification::setMetadata(const QString& metadata)
{
    if (d->set(NotificationPrivate::Metadata, d->metadata, metadata))
        Q_EMIT metadataChanged(metadata);
}

void Notification::resetMetadata()
{
    setMetadata(QString());
}

void Notification::notify()
{
    d->notify();
}

void Notification::cancel()
{
    d->cancel();
}

void Notification::appendPromptChoice(PromptChoice* choice)
{
    d->attach(choice);
}

void Notification::clearPromptChoices()
{
    d->clear();
}

int Notification::countPromptChoices() const
{
    const QMutexLocker locker(&d->choicesMutex);
    return static_cast<int>(d->promptChoices.size());
}

PromptChoice* Notification::promptChoiceAt(int index) const
{
    const QMutexLocker locker(&d->choicesMutex);
    return d->promptChoices.value(index, nullptr);
}

ChoiceList Notification::qmlPromptChoices()
{
    ChoiceList list(this, nullptr, appendToList, countOfList, elementOfList, clearList);
    // Qt would make these of clearing and appending, and cleared choices are deleted.
    list.replace = nullptr;
    list.removeLast = nullptr;
    return list;
}

bool Notification::event(QEvent* event)
{
    tamo::detail::followToThread(d.get(), this, event);
    return QObject::event(event);
}

void Notification::childEvent(QChildEvent* event)
{
    // The private object may be a child, too, and then leaves as it is destroyed.
    if (d && event->child() != d.get())
        d->childEvent(event);
}

} // namespace platform
} // namespace tamo
