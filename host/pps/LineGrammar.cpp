// SPDX-License-Identifier: Apache-2.0
#include "LineGrammar.h"

#include "ByteScan.h"
#include "Utf8.h"

#include <cstring>

namespace pps {
namespace {

constexpr auto controlOrNotAscii = [](auto block) { return block.below(' ') | block.notAscii(); };
constexpr auto colon = [](auto block) { return block.equal(':'); };
constexpr auto backslash = [](auto block) { return block.equal('\\'); };

/** Takes what stands before the next colon off the text. False where there is no colon. */
bool takeField(std::string_view& text, std::string_view& field)
{
    const char* const end = text.data() + text.size();
    const char* const place = find(text.data(), end, colon);
    if (place == end)
        return false;
    field = text.substr(0, static_cast<std::size_t>(place - text.data()));
    text.remove_prefix(field.size() + 1);
    return true;
}

const Fault* splitObject(Line& line, LineKind kind, std::size_t atSign)
{
    line.kind = kind;
    line.name = line.text.substr(atSign);
    return line.name.size() > 1 ? nullptr : &faults::ObjectName;
}

const Fault* splitDeletion(Line& line)
{
    line.kind = LineKind::DeletedAttribute;
    line.name = line.text.substr(1);
    return checkAttributeName(line.name);
}

const Fault* splitAttribute(Line& line)
{
    line.kind = LineKind::Attribute;
    line.value = line.text;
    if (!takeField(line.value, line.name) || !takeField(line.value, line.marker))
        return &faults::Colons;
    return checkAttributeName(line.name);
}

const Fault* split(Line& line)
{
    const std::string_view text = line.text;
    if (text.empty())
        return &faults::EmptyLine;
    const bool secondIsAtSign = text.size() > 1 && text[1] == '@';
    if (text[0] == '@')
        return splitObject(line, LineKind::Object, 0);
    if (text[0] == '-')
        return secondIsAtSign ? splitObject(line, LineKind::RemovedObject, 1) : splitDeletion(line);
    if (text[0] == '+' && secondIsAtSign)
        return splitObject(line, LineKind::ArrivedClient, 1);
    return splitAttribute(line);
}

} // namespace

const Fault* checkAttributeName(std::string_view name)
{
    if (name.empty())
        return &faults::EmptyName;
    if (name[0] == '@' || name[0] == '-' || name.substr(0, 2) == "+@")
        return &faults::NameStart;
    return name.find(':') == name.npos ? nullptr : &faults::NameColon;
}

const Fault* scanLine(const char*& cursor, const char* end)
{
    for (;;) {
        cursor = find(cursor, end, controlOrNotAscii);
        if (cursor == end || *cursor == '\n')
            return nullptr;
        if (*cursor == '\0')
            return &faults::Nul;
        if (*cursor == '\r')
            return &faults::CarriageReturn;
        if ((*cursor & 0x80) == 0)
            ++cursor;
        else if (!utf8::skip(cursor, end))
            return &faults::Utf8;
    }
}

const Fault* takeLine(std::string_view& text, Line& line)
{
    const char* cursor = text.data();
    if (const Fault* fault = scanLine(cursor, text.data() + text.size()))
        return fault;
    const auto length = static_cast<std::size_t>(cursor - text.data());
    line = Line();
    line.text = text.substr(0, length);
    text.remove_prefix(length < text.size() ? length + 1 : length);
    return split(line);
}

const Fault* scanText(std::string_view value, bool& escaped)
{
    escaped = false;
    const char* const end = value.data() + value.size();
    for (const char* cursor = value.data();; cursor += 2) {
        cursor = find(cursor, end, backslash);
        if (cursor == end)
            return nullptr;
        if (cursor + 1 == end || !std::strchr("nr\\", cursor[1]))
            return &faults::TextEscape;
        escaped = true;
    }
}

char* unescapeText(char* begin, char* end)
{
    char* to = begin;
    for (const char* cursor = begin; cursor != end; ++cursor) {
        if (*cursor != '\\') {
            *to++ = *cursor;
            continue;
        }
        ++cursor;
        *to++ = *cursor == 'n' ? '\n' : *cursor == 'r' ? '\r' : '\\';
    }
    return to;
}

} // namespace pps
