// SPDX-License-Identifier: Apache-2.0
#include "EncoderWriter.h"

#include "LineGrammar.h"
#include "StringRules.h"
#include "Utf8.h"

#include <cerrno>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <cstring>

namespace pps {
namespace {

/** Enough for any number. */
constexpr std::size_t NumberSize = 32;

/**
 * Copies up to the first special byte, moves `cursor` to it and returns the end of the copy. It
 * writes up to a block more than it copies.
 */
template<class Matcher>
char* copyPlain(const char*& cursor, const char* end, char* to, Matcher special)
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

EncoderWriter& EncoderWriter::name(const char* name, const Punctuation& marker)
{
    if (inArray() != (name == nullptr))
        return fail(EINVAL);

    if (inLines()) {
        if (checkNameStart(name))
            return fail(EINVAL);
        putString<rules::AttributeName>("", name, marker);
        return *this;
    }
    const char before = m_encoder.data[m_start - 1];
    const bool isFirst = before == '{' || before == '[';
    if (!isFirst)
        put(",");
    if (name)
        putString<rules::Json>("\"", name, "\":");
    return *this;
}

EncoderWriter& EncoderWriter::word(const Punctuation& word)
{
    put(word);
    return *this;
}

EncoderWriter& EncoderWriter::string(const char* text)
{
    if (!text)
        return fail(EINVAL);
    if (inLines())
        putString<rules::Text>("", text, "");
    else
        putString<rules::Json>("\"", text, "\"");
    return *this;
}

EncoderWriter& EncoderWriter::number(std::int64_t value)
{
    putNumber(value);
    return *this;
}

EncoderWriter& EncoderWriter::number(double value)
{
    constexpr double ExactLimit = 9007199254740992.0; // 2^53: integers below it are doubles
    if (!std::isfinite(value))
        return fail(EINVAL);
    // An integer has no negative zero.
    const bool isNegativeZero = value == 0 && std::signbit(value);
    if (std::fabs(value) < ExactLimit && !isNegativeZero) {
        const auto integer = static_cast<std::int64_t>(value);
        if (static_cast<double>(integer) == value)
            return number(integer);
    }
    putNumber(value);
    return *this;
}

EncoderWriter& EncoderWriter::open(bool object)
{
    if (m_encoder.depth == PPS_MAX_DEPTH)
        return fail(EOVERFLOW);
    put(object ? Punctuation("{") : Punctuation("["));
    if (m_error)
        return *this;
    std::uint8_t& levels = m_encoder.containers[m_encoder.depth / 8];
    const auto level = static_cast<std::uint8_t>(1U << m_encoder.depth % 8);
    levels = static_cast<std::uint8_t>(object ? levels & ~level : levels | level);
    ++m_encoder.depth;
    return *this;
}

EncoderWriter& EncoderWriter::close(bool object)
{
    if (m_encoder.depth == 0 || inArray() == object)
        return fail(EINVAL);
    put(object ? Punctuation("}") : Punctuation("]"));
    if (!m_error)
        --m_encoder.depth;
    return *this;
}

EncoderWriter& EncoderWriter::deletion(const char* name)
{
    if (!inLines() || !name || checkNameStart(name))
        return fail(EINVAL);
    putString<rules::AttributeName>("-", name, "");
    return *this;
}

EncoderWriter& EncoderWriter::objectName(const char* name)
{
    if (!inLines() || !name || name[0] != '@' || name[1] == '\0')
        return fail(EINVAL);
    putString<rules::Line>("", name, "");
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

bool EncoderWriter::inArray() const
{
    if (m_encoder.depth == 0)
        return false;
    const std::uint32_t level = m_encoder.depth - 1;
    return (m_encoder.containers[level / 8] >> level % 8 & 1) != 0;
}

EncoderWriter& EncoderWriter::fail(int code)
{
    if (!m_error)
        m_error = code;
    return *this;
}

bool EncoderWriter::grow(std::size_t size)
{
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

template<class Number>
void EncoderWriter::putNumber(Number value)
{
    if (char* const to = room(NumberSize))
        wrote(std::to_chars(to, to + NumberSize, value).ptr);
}

template<class Rules>
void EncoderWriter::putString(const Punctuation& before, std::string_view text,
                              const Punctuation& after)
{
    const char* cursor = text.data();
    const char* const end = cursor + text.size();
    put(before);
    while (char* const to = room(static_cast<std::size_t>(end - cursor))) {
        char* const copied = copyPlain(cursor, end, to, Rules::special);
        if (cursor == end) {
            wrote(after.store(copied));
            return;
        }
        wrote(copied);
        putSpecial(cursor, end, Rules::replacement);
    }
}

/** Writes what stands at `cursor`, which is special, and moves `cursor` behind it. */
void EncoderWriter::putSpecial(const char*& cursor, const char* end,
                               const char* (*replacementOf)(char))
{
    const char* const begin = cursor;
    const char* replacement = nullptr;
    if ((*begin & 0x80) == 0)
        replacement = replacementOf(*cursor++);
    else if (!utf8::skip(cursor, end))
        replacement = rules::Refused;
    if (replacement == rules::Refused) {
        fail(EINVAL);
        return;
    }

    const std::string_view written =
        replacement ? replacement
                    : std::string_view(begin, static_cast<std::size_t>(cursor - begin));
    if (char* const to = room(written.size())) {
        std::memcpy(to, written.data(), written.size());
        wrote(to + written.size());
    }
}

} // namespace pps
