// SPDX-License-Identifier: Apache-2.0
#include "EncoderWriter.h"

#include "ByteScan.h"
#include "LineGrammar.h"
#include "Utf8.h"

#include <cerrno>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <cstring>

namespace pps {
namespace {

/** How many bytes are always free: a line end or brace at the end of the text, and the final NUL.
 */
constexpr std::size_t Slack = 2;

/** Enough for any number. */
constexpr std::size_t NumberSize = 32;

constexpr const char* JsonControls[] = {
    "\\u0000", "\\u0001", "\\u0002", "\\u0003", "\\u0004", "\\u0005", "\\u0006", "\\u0007",
    "\\b",     "\\t",     "\\n",     "\\u000b", "\\f",     "\\r",     "\\u000e", "\\u000f",
    "\\u0010", "\\u0011", "\\u0012", "\\u0013", "\\u0014", "\\u0015", "\\u0016", "\\u0017",
    "\\u0018", "\\u0019", "\\u001a", "\\u001b", "\\u001c", "\\u001d", "\\u001e", "\\u001f"};

/** The escape of an ASCII character in JSON; null where it stands for itself. */
const char* jsonEscape(char character)
{
    if (character >= '\0' && character < ' ')
        return JsonControls[static_cast<unsigned char>(character)];
    return character == '"' ? "\\\"" : character == '\\' ? "\\\\" : nullptr;
}

/** The same in the value of a string attribute. */
const char* textEscape(char character)
{
    switch (character) {
    case '\n':
        return "\\n";
    case '\r':
        return "\\r";
    case '\\':
        return "\\\\";
    default:
        return nullptr;
    }
}

/** Whatever either way of escaping looks at, and what has to be checked. */
constexpr auto special = [](auto block) {
    return block.equal('"') | block.equal('\\') | block.below(' ') | block.notAscii();
};

/**
 * Copies up to the first special byte, moves `cursor` to it and returns the end of the copy. It
 * writes up to a block more than it copies.
 */
char* copyPlain(const char*& cursor, const char* end, char* to)
{
    for (; end - cursor >= Block::Size; cursor += Block::Size, to += Block::Size) {
        const Block block = Block::load(cursor);
        block.store(to);
        if (const auto mask = special(block)) {
            cursor += mask.first();
            return to + mask.first();
        }
    }
    const std::ptrdiff_t rest = end - cursor;
    const Block block = Block::loadPart(cursor, rest);
    block.store(to);
    const auto mask = special(block).within(rest);
    const std::ptrdiff_t copied = mask ? mask.first() : rest;
    cursor += copied;
    return to + copied;
}

} // namespace

EncoderWriter& EncoderWriter::name(const char* name, std::string_view marker)
{
    if (m_encoder.depth > 0 && !inObject() ? name != nullptr : name == nullptr)
        return fail(EINVAL);

    if (inLines()) {
        if (checkAttributeName(name))
            return fail(EINVAL);
        putLine(name);
        put(":");
        put(marker);
        put(":");
        return *this;
    }
    const char before = m_encoder.data[m_start - 1];
    if (before != '{' && before != '[')
        put(",");
    if (name) {
        putQuoted(name);
        put(":");
    }
    return *this;
}

EncoderWriter& EncoderWriter::verbatim(std::string_view text)
{
    put(text);
    return *this;
}

EncoderWriter& EncoderWriter::string(const char* text)
{
    if (!text)
        return fail(EINVAL);
    if (inLines())
        putEscaped(text, textEscape);
    else
        putQuoted(text);
    return *this;
}

EncoderWriter& EncoderWriter::number(std::int64_t value)
{
    char text[NumberSize];
    char* const end = std::to_chars(text, text + sizeof text, value).ptr;
    put({text, static_cast<std::size_t>(end - text)});
    return *this;
}

EncoderWriter& EncoderWriter::number(double value)
{
    constexpr double ExactLimit = 9007199254740992.0; // 2^53: integers below it are doubles
    if (!std::isfinite(value))
        return fail(EINVAL);
    const bool isNegativeZero = value == 0 && std::signbit(value);
    if (std::fabs(value) < ExactLimit && value == std::trunc(value) && !isNegativeZero)
        return number(static_cast<std::int64_t>(value));
    char text[NumberSize];
    char* const end = std::to_chars(text, text + sizeof text, value).ptr;
    put({text, static_cast<std::size_t>(end - text)});
    return *this;
}

EncoderWriter& EncoderWriter::open(bool object)
{
    if (m_encoder.depth == PPS_MAX_DEPTH)
        return fail(EOVERFLOW);
    put(object ? "{" : "[");
    if (m_error)
        return *this;
    std::uint8_t& byte = m_encoder.containers[m_encoder.depth / 8];
    const auto bit = static_cast<std::uint8_t>(1U << m_encoder.depth % 8);
    byte = static_cast<std::uint8_t>(object ? byte | bit : byte & ~bit);
    ++m_encoder.depth;
    return *this;
}

EncoderWriter& EncoderWriter::close(bool object)
{
    if (m_encoder.depth == 0 || inObject() != object)
        return fail(EINVAL);
    put(object ? "}" : "]");
    if (!m_error)
        --m_encoder.depth;
    return *this;
}

EncoderWriter& EncoderWriter::deletion(const char* name)
{
    if (!inLines() || !name || checkAttributeName(name))
        return fail(EINVAL);
    put("-");
    putLine(name);
    return *this;
}

EncoderWriter& EncoderWriter::objectName(const char* name)
{
    if (!inLines() || !name || name[0] != '@' || name[1] == '\0')
        return fail(EINVAL);
    putLine(name);
    return *this;
}

int EncoderWriter::finish()
{
    if (m_error) {
        m_encoder.length = m_start;
        errno = m_error;
        return -1;
    }
    if (inLines())
        m_encoder.data[m_encoder.length++] = '\n';
    return 0;
}

EncoderWriter& EncoderWriter::fail(int code)
{
    if (!m_error)
        m_error = code;
    return *this;
}

bool EncoderWriter::inObject() const
{
    const std::uint32_t level = m_encoder.depth - 1;
    return (m_encoder.containers[level / 8] >> level % 8 & 1) != 0;
}

bool EncoderWriter::reserve(std::size_t size)
{
    if (m_error)
        return false;
    if (size + Slack <= m_encoder.capacity - m_encoder.length)
        return true;

    const std::size_t needed = m_encoder.length + size + Slack;
    const std::size_t capacity = needed > 2 * m_encoder.capacity ? needed : 2 * m_encoder.capacity;
    const bool isInline = m_encoder.data == m_encoder.inline_data;
    void* const memory = std::realloc(isInline ? nullptr : m_encoder.data, capacity);
    if (!memory) {
        fail(ENOMEM);
        return false;
    }
    if (isInline)
        std::memcpy(memory, m_encoder.inline_data, m_encoder.length);
    m_encoder.data = static_cast<char*>(memory);
    m_encoder.capacity = capacity;
    return true;
}

void EncoderWriter::put(std::string_view text)
{
    if (!reserve(text.size()))
        return;
    std::memcpy(m_encoder.data + m_encoder.length, text.data(), text.size());
    m_encoder.length += text.size();
}

void EncoderWriter::putEscaped(std::string_view text, const char* (*escape)(char))
{
    const char* cursor = text.data();
    const char* const end = cursor + text.size();
    while (reserve(static_cast<std::size_t>(end - cursor + Block::Size))) {
        char* const to = m_encoder.data + m_encoder.length;
        m_encoder.length += static_cast<std::size_t>(copyPlain(cursor, end, to) - to);
        if (cursor == end)
            return;

        const char* const begin = cursor;
        if ((*begin & 0x80) != 0) {
            if (!utf8::skip(cursor, end))
                fail(EINVAL);
        } else if (const char* const instead = escape(*cursor++)) {
            put(instead);
            continue;
        }
        put({begin, static_cast<std::size_t>(cursor - begin)});
    }
}

void EncoderWriter::putQuoted(const char* text)
{
    put("\"");
    putEscaped(text, jsonEscape);
    put("\"");
}

void EncoderWriter::putLine(std::string_view text)
{
    const char* cursor = text.data();
    const char* const end = cursor + text.size();
    if (scanLine(cursor, end) || cursor != end)
        fail(EINVAL);
    put(text);
}

} // namespace pps
