// SPDX-License-Identifier: Apache-2.0
#include "NotifyRequest.h"

#include "NotificationText.h"

#include "common/Failure.h"
#include "services/RequestValues.h"

namespace tamobox {

namespace {

constexpr std::size_t longestId = 128;           // bytes
constexpr std::size_t longestDescription = 4096; // bytes
constexpr std::size_t mostChoices = 32;

LedColor ledColorIn(const MessageReader& dat)
{
    if (!dat.has("ledColor"))
        return LedColor::None;
    const std::optional<LedColor> color = ledColorOf(dat.integer("ledColor").value_or(-1));
    if (!color)
        throw Failure("ledColor must be the RGB value of one of " + ledColorNames());
    return *color;
}

std::optional<std::int64_t> momentIn(const MessageReader& dat, const char* name)
{
    if (!dat.has(name))
        return std::nullopt;
    const auto moment = parseMilliseconds(dat.string(name).value_or(""));
    if (!moment)
        throw Failure(std::string(name) + " must be milliseconds since the epoch, as a text");
    return moment;
}

std::vector<NotificationChoice> choicesIn(MessageReader& dat)
{
    std::vector<NotificationChoice> choices;
    if (!dat.has("promptChoices"))
        return choices;
    if (!dat.enter("promptChoices"))
        throw Failure("promptChoices must be an array of objects");
    while (dat.next()) {
        if (dat.type() != PPS_TYPE_OBJECT || !dat.enter(nullptr))
            throw Failure("promptChoices must be an array of objects");
        choices.push_back({requiredText(dat, "id", longestId),
                           requiredText(dat, "label", longestDescription),
                           optionalText(dat, "context", longestDescription)});
        dat.leave();
        if (choices.size() > mostChoices)
            throw Failure("promptChoices must be at most " + std::to_string(mostChoices));
    }
    dat.leave();
    return choices;
}

} // namespace

Notification readNotify(MessageReader& dat)
{
    Notification notification;
    notification.id = readNotificationId(dat);
    notification.isHtml = dat.has("htmlText");
    if (notification.isHtml && dat.has("text"))
        throw Failure("text and htmlText must not both be there");
    notification.text = requiredText(dat, notification.isHtml ? "htmlText" : "text", longestText);
    notification.ledColor = ledColorIn(dat);
    notification.context = optionalText(dat, "context", longestDescription);
    notification.notifyOnInvoke = !dat.has("notifyOnInvoke") || requiredFlag(dat, "notifyOnInvoke");
    notification.time = momentIn(dat, "time");
    notification.expirationTime = momentIn(dat, "expirationTime");
    notification.sound = optionalText(dat, "soundUrl", longestDescription);
    notification.icon = optionalText(dat, "iconUrl", longestDescription);
    notification.choices = choicesIn(dat);
    return notification;
}

std::string readNotificationId(const MessageReader& dat)
{
    const std::string id = requiredText(dat, "id", longestId);
    if (id.empty())
        throw Failure("id must not be empty");
    return id;
}

} // namespace tamobox
