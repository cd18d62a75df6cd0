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

std::string_view view(const char* begin, const char* end)
{
    return {begin, static_cast<std::size_t>(end - begin)};
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
    if (line.name.find(':') != line.name.npos)
        return &faults::NameColon;
    return checkNameStart(line.name);
}

const Fault* splitAttribute(Line& line)
{
    line.kind = LineKind::Attribute;
    const char* const begin = line.text.data();
    const char* const end = begin + line.text.size();
    const char* const nameEnd = find(begin, end, colon);
    if (nameEnd == end)
        return &faults::Colons;
    const char* const markerEnd = find(nameEnd + 1, end, colon);
    if (markerEnd == end)
        return &faults::Colons;
    line.name = view(begin, nameEnd);
    line.marker = view(nameEnd + 1, markerEnd);
    line.value = view(markerEnd + 1, end);
    return checkNameStart(line.name);
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

const Fault* checkNameStart(std::string_view name)
{
    if (name.empty())
        return &faults::EmptyName;
    const bool isReserved = name[0] == '@' || name[0] == '-' || name.substr(0, 2) == "+@";
    return isReserved ? &faults::NameStart : nullptr;
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

[[gnu::flatten]] const Fault* takeLine(std::string_view& text, Line& line)
{
    const char* cursor = text.data();
    if (const Fault* fault = scanLine(cursor, text.data() + text.size()))
        return fault;
    const auto length = static_cast<std::size_t>(cursor - text.data());
    line.marker = line.value = std::string_view();
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
