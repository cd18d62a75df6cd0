// SPDX-License-Identifier: Apache-2.0
#include "NotificationTable.h"

#include "TextTable.h"

#include "common/Json.h"
#include "pps/ObjectFile.h"
#include "services/notification/NotificationText.h"

#include <fcntl.h>

namespace tamobox {

namespace {

std::string momentText(const std::optional<std::int64_t>& milliseconds)
{
    if (!milliseconds)
        return "never";
    return localTimeText(*milliseconds);
}

std::vector<std::string> rowFor(const Notification& notification)
{
    std::string choices;
    for (const NotificationChoice& choice : notification.choices)
        choices += (choices.empty() ? "" : " | ") + choice.label;
    return {tableCell(notification.id),
            std::to_string(notification.process),
            tableCell(notification.application),
            notification.isGone     ? "gone"
            : notification.isOpened ? "opened"
                                    : "new",
            nameOf(notification.ledColor),
            momentText(notification.expirationTime),
            tableCell(choices),
            tableCell(notification.text)};
}

void add(Json& json, const char* name, const std::optional<std::string>& value)
{
    json.key(name);
    value ? json.string(*value) : json.null();
}

void add(Json& json, const char* name, const std::optional<std::int64_t>& value)
{
    json.key(name);
    value ? json.number(*value) : json.null();
}

void write(Json& json, const Notification& notification)
{
    json.startObject().key("id").string(notification.id);
    json.key("pid").number(notification.process);
    json.key("application").string(notification.application);
    json.key("gone").boolean(notification.isGone).key("opened").boolean(notification.isOpened);
    json.key("text").string(notification.text).key("html").boolean(notification.isHtml);
    json.key("choices").startArray();
    for (const NotificationChoice& choice : notification.choices) {
        json.startObject().key("id").string(choice.id).key("label").string(choice.label);
        add(json, "context", choice.context);
        json.endObject();
    }
    json.endArray().key("ledColor");
    notification.ledColor == LedColor::None ? json.null()
                                            : json.string(nameOf(notification.ledColor));
    add(json, "context", notification.context);
    json.key("notifyOnInvoke").boolean(notification.notifyOnInvoke);
    add(json, "time", notification.time);
    add(json, "expirationTime", notification.expirationTime);
    add(json, "sound", notification.sound);
    add(json, "icon", notification.icon);
    json.endObject();
}

} // namespace

std::vector<Notification> publishedNotifications()
{
    const auto text = ObjectFile(notificationsObject, O_RDONLY | O_NONBLOCK).read();
    return text ? readNotifications(*text) : std::vector<Notification>();
}

std::string notificationTable(const std::vector<Notification>& notifications)
{
    if (notifications.empty())
        return "no notification\n";
    std::vector<std::vector<std::string>> rows = {
        {"id", "pid", "application", "state", "led", "expires", "choices", "text"}};
    for (const Notification& notification : notifications)
        rows.push_back(rowFor(notification));
    std::string table;
    for (const std::string& line : tableLines(rows))
        table += line;
    return table;
}

std::string notificationsToJson(const std::vector<Notification>& notifications)
{
    Json json;
    json.startArray();
    for (const Notification& notification : notifications)
        write(json, notification);
    return json.endArray().text();
}

} // namespace tamobox
