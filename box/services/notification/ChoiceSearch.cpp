// SPDX-License-Identifier: Apache-2.0
#include "ChoiceSearch.h"

#include "IdMatch.h"

#include "common/Failure.h"
#include "common/Printable.h"

namespace tamobox {

namespace {

std::string labelsOf(const Notification& notification)
{
    std::string labels;
    for (const NotificationChoice& choice : notification.choices)
        labels += (labels.empty() ? "'" : ", '") + printable(choice.label) + '\'';
    return labels;
}

std::string describe(const std::optional<std::string>& label,
                     const std::optional<std::string>& choiceId)
{
    std::string text;
    if (label)
        text += " '" + *label + '\'';
    if (choiceId)
        text += " of the id '" + *choiceId + '\'';
    return text;
}

} // namespace

std::size_t findChoice(const Notification& notification, const std::optional<std::string>& label,
                       const std::optional<std::string>& choiceId)
{
    if (notification.choices.empty())
        throw Failure(printable(notification.id) + " offers no choices; acknowledge it instead");
    std::vector<std::size_t> found;
    std::string ids;
    for (std::size_t i = 0; i < notification.choices.size(); ++i) {
        const NotificationChoice& choice = notification.choices[i];
        if ((label && choice.label != *label) || (choiceId && !isBeginningOf(choice.id, *choiceId)))
            continue;
        if (choiceId && choice.id == *choiceId)
            return i;
        found.push_back(i);
        ids += (ids.empty() ? "" : ", ") + printable(choice.id + " '" + choice.label + '\'');
    }
    if (found.empty())
        throw Failure(printable(notification.id) + " has no choice" + describe(label, choiceId) +
                      "; there are: " + labelsOf(notification));
    if (found.size() > 1)
        throw Failure(printable(notification.id) + " has " + std::to_string(found.size()) +
                      " choices" + describe(label, choiceId) +
                      "; name one with --choice-id: " + ids);
    return found[0];
}

} // namespace tamobox
