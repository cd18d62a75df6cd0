// SPDX-License-Identifier: Apache-2.0
#include "PromptChoicePrivate.h"

#include "pps/ServiceMessage.h"

namespace tamo {
namespace platform {

namespace {

using Entry = tamo::detail::MessageEntry<PromptChoicePrivate>;
using Source = const PromptChoicePrivate&;

struct Description
{
    const Entry entries[3] = {
        {QStringLiteral("context"),
         [](Source choice) {
             return choice.metadata.isEmpty() ? QVariant() : QVariant(choice.metadata);
         }},
        {QStringLiteral("id"), [](Source choice) { return QVariant(choice.id); }},
        {QStringLiteral("label"), [](Source choice) { return QVariant(choice.label); }},
    };
};

} // namespace

PromptChoicePrivate::PromptChoicePrivate(PromptChoice* choice) : q(choice)
{
    describe();
}

void PromptChoicePrivate::describe()
{
    static const auto& table = *new Description;
    for (const Entry& entry : table.entries)
        tamo::detail::setEntry(description, entry, *this);
}

void PromptChoicePrivate::onSelectedBroadcast(const QString& choiceId,
                                              const QString& notificationMetadata,
                                              const QString& choiceLabel,
                                              const QString& choiceMetadata)
{
    // The last that is done: a receiver may delete the choice.
    if (choiceId == id)
        Q_EMIT q->selected(notificationMetadata, choiceLabel, choiceMetadata);
}

} // namespace platform
} // namespace tamo
