// SPDX-License-Identifier: Apache-2.0
#include <tamo/platform/PromptChoice.h>

#include "PromptChoicePrivate.h"
#include "core/Change.h"
#include "core/ThreadChange.h"

namespace tamo {
namespace platform {

using tamo::detail::change;

// It has its parent from the moment in which it is whole to the one in which it begins to go, so
// that a notification never meets a part of a choice, in whichever thread it looks.

PromptChoice::PromptChoice(QObject* parent) : d(std::make_unique<PromptChoicePrivate>(this))
{
    setParent(parent);
}

PromptChoice::~PromptChoice()
{
    setParent(nullptr);
}

QString PromptChoice::label() const
{
    return d->label;
}

void PromptChoice::setLabel(const QString& label)
{
    const bool changes = change(d->label, label);
    d->describe();
    if (changes)
        Q_EMIT labelChanged(label);
}

void PromptChoice::resetLabel()
{
    setLabel(QString());
}

QString PromptChoice::metadata() const
{
    return d->metadata;
}

void PromptChoice::setMetadata(const QString& metadata)
{
    const bool changes = change(d->metadata, metadata);
    d->describe();
    if (changes)
        Q_EMIT metadataChanged(metadata);
}

void PromptChoice::resetMetadata()
{
    setMetadata(QString());
}

bool PromptChoice::event(QEvent* event)
{
    tamo::detail::followToThread(d.get(), this, event);
    return QObject::event(event);
}

} // namespace platform
} // namespace tamo
