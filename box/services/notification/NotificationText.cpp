// SPDX-License-Identifier: Apache-2.0
#include "NotificationText.h"

#include <charconv>

namespace tamobox {

namespace {

template<typename Number>
std::optional<Number> parseNumber(const std::string& text)
{
    Number number = 0;
    const char* const end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, number);
    if (result.ec != std::errc() || result.ptr != end)
        return std::nullopt;
    return number;
}

void addIfSet(MessageWriter& message, const char* name, const std::optional<std::string>& value)
{
    if (value)
        message.add(name, *value);
}

// As text: a number of PPS text has no more than 53 bits.
void addIfSet(MessageWriter& message, const char* name, const std::optional<std::int64_t>& value)
{
    if (value)
        message.add(name, std::to_string(*value));
}

std::optional<std::int64_t> milliseconds(const MessageReader& reader, const char* name)
{
    return parseMilliseconds(reader.string(name).value_or(""));
}

std::vector<NotificationChoice> readChoices(MessageReader& reader)
{
    std::vector<NotificationChoice> choices;
    if (!reader.enter("choices"))
        return choices;
    while (reader.next()) {
        if (!reader.enter(nullptr))
            continue;
        choices.push_back({reader.string("id").value_or(""), reader.string("label").value_or(""),
                           reader.string("context")});
        reader.leave();
    }
    reader.leave();
    return choices;
}

Notification readNotification(MessageReader& reader, int number)
{
    Notification notification;
    notification.number = number;
    notification.client = reader.integer("client").value_or(0);
    notification.process = reader.integer("pid").value_or(0);
    notification.application = reader.string("application").value_or("");
    notification.isGone = reader.boolean("gone").value_or(false);
    notification.isOpened = reader.boolean("opened").value_or(false);
    notification.id = reader.string("id").value_or("");
    notification.text = reader.string("text").value_or("");
    notification.isHtml = reader.boolean("html").value_or(false);
    notification.ledColor =
        ledColorNamed(reader.string("ledColor").value_or("")).value_or(LedColor::None);
    notification.context = reader.string("context");
    notification.notifyOnInvoke = reader.boolean("notifyOnInvoke").value_or(true);
    notification.time = milliseconds(reader, "time");
    notification.expirationTime = milliseconds(reader, "expirationTime");
    notification.sound = reader.string("sound");
    notification.icon = reader.string("icon");
    notification.choices = readChoices(reader);
    return notification;
}

} // namespace

void writeNotification(MessageWriter& message, const Notification& notification)
{
    message.startObject(std::to_string(notification.number).c_str())
        .add("client", notification.client)
        .add("pid", notification.process)
        .add("application", notification.application)
        .add("gone", notification.isGone)
        .add("opened", notification.isOpened)
        .add("id", notification.id)
        .add("text", notification.text)
        .add("html", notification.isHtml);
    if (notification.ledColor != LedColor::None)
        message.add("ledColor", nameOf(notification.ledColor));
    addIfSet(message, "context", notification.context);
    message.add("notifyOnInvoke", notification.notifyOnInvoke);
    addIfSet(message, "time", notification.time);
    addIfSet(message, "expirationTime", notification.expirationTime);
    addIfSet(message, "sound", notification.sound);
    addIfSet(message, "icon", notification.icon);
    message.startArray("choices");
    for (const NotificationChoice& choice : notification.choices) {
        message.startObject(nullptr).add("id", choice.id).add("label", choice.label);
        addIfSet(message, "context", choice.context);
        message.endObject();
    }
    message.endArray().endObject();
}

std::vector<Notification> readNotifications(const std::string& text)
{
    std::vector<Notification> notifications;
    MessageReader reader(text);
    if (!reader.enter("@notifications"))
        return notifications;
    while (reader.next()) {
        const std::optional<int> number = parseNumber<int>(reader.name());
        if (!number || !reader.enter(nullptr))
            continue;
        if (reader.has("client") && reader.has("id") && reader.has("text"))
            notifications.push_back(readNotification(reader, *number));
        reader.leave();
    }
    return notifications;
}

std::optional<std::int64_t> parseMilliseconds(const std::string& text)
{
    return parseNumber<std::int64_t>(text);
}

} // namespace tamobox
