// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_ATTRIBUTEREADER_H
#define TAMOBOX_ATTRIBUTEREADER_H

#include "pps/MessageReader.h"
#include "pps/ObjectFile.h"

#include <fcntl.h>

#include <optional>
#include <utility>

namespace tamobox {

/**
 * Reads an object of the box that this process is in.
 *
 * @param object its path below `/pps`
 * @param member the line under which its attributes are, such as `@battery`
 * @param get takes what is wanted out of them
 * @return what `get` returned, an optional; nothing where the object was never published
 * @throws ObjectFailure
 */
template<typename Getter>
auto readAttribute(const char* object, const char* member, Getter get)
    -> decltype(get(std::declval<MessageReader&>()))
{
    const auto text = ObjectFile(object, O_RDONLY | O_NONBLOCK).read();
    if (!text)
        return std::nullopt;
    MessageReader message(*text);
    if (!message.enter(member))
        return std::nullopt;
    return get(message);
}

} // namespace tamobox

#endif
