// SPDX-License-Identifier: Apache-2.0
#include "PpsMapDecoder.h"

#include "NameCache.h"
#include "Utf8Text.h"

#include <tamo/Exception.h>

#include <array>
#include <cstring>
#include <map>
#include <utility>

namespace tamo {

namespace {

void check(int result)
{
    if (result != 0)
        throw Exception();
}

/**
 * Puts a value into a variant of its type. QVariant's constructors would share it with the caller
 * for the moment in which there are two of it, and each value would cost two atomic operations.
 */
template<class Value>
void fill(QVariant& variant, Value value)
{
    *static_cast<Value*>(variant.data()) = std::move(value);
}

} // namespace

PpsMapDecoder::PpsMapDecoder(const QByteArray& text) : m_names(NameCache::ofThisThread())
{
    const size_t size = static_cast<size_t>(text.size());
    // The decoder would take the text to end there.
    if (size != 0 && std::memchr(text.constData(), '\0', size) != nullptr)
        throw Exception();
    m_text.append(text.constData(), text.size());
    // The zero that ends the text, and what the cache of names may read behind it.
    static constexpr std::array<char, NameCache::ReadableSize> zeros = {};
    m_text.append(zeros.data(), zeros.size());
    if (pps_decoder_initialize(&m_decoder, m_text.data()) != 0) {
        pps_decoder_cleanup(&m_decoder);
        throw Exception();
    }
}

PpsMapDecoder::~PpsMapDecoder()
{
    pps_decoder_cleanup(&m_decoder);
}

QVariantMap PpsMapDecoder::members()
{
    // QMap::insert() copies each name and value; a standard map takes them over, and QMap takes
    // over the map. (Qt 5's copies it once.)
    std::map<QString, QVariant> map;
    const int length = pps_decoder_length(&m_decoder);
    const char* previousName = nullptr;
    bool isAscending = true;
    for (int index = 0; index < length; ++index) {
        check(pps_decoder_goto_index(&m_decoder, index));
        const char* const name = pps_decoder_name(&m_decoder);
        isAscending = isAscending && (index == 0 || std::strcmp(previousName, name) < 0);
        previousName = name;
        // As long as the names ascend, which those that encode() wrote all do, each is a new one,
        // and its place is the end. Any other may be a repetition.
        value([&](auto initial) -> QVariant& {
            if (isAscending)
                return map.emplace_hint(map.cend(), nameFrom(name), initial)->second;
            const auto [place, isNew] = map.try_emplace(nameFrom(name), initial);
            if (!isNew)
                place->second = QVariant(initial);
            return place->second;
        });
    }
    return QVariantMap(std::move(map));
}

QString PpsMapDecoder::nameFrom(const char* utf8)
{
    return m_names ? m_names->text(utf8) : textFromUtf8(utf8, std::strlen(utf8));
}

template<class Place>
void PpsMapDecoder::value(Place place)
{
    switch (pps_decoder_type(&m_decoder, nullptr)) {
    case PPS_TYPE_BOOL: {
        bool boolean = false;
        check(pps_decoder_get_bool(&m_decoder, nullptr, &boolean));
        place(boolean);
        return;
    }
    case PPS_TYPE_NUMBER: {
        double number = 0;
        check(pps_decoder_get_double(&m_decoder, nullptr, &number));
        place(number);
        return;
    }
    case PPS_TYPE_STRING: {
        const char* string = nullptr;
        check(pps_decoder_get_string(&m_decoder, nullptr, &string));
        fill(place(QString()), textFromUtf8(string, std::strlen(string)));
        return;
    }
    case PPS_TYPE_ARRAY: {
        check(pps_decoder_push(&m_decoder, nullptr));
        fill(place(QVariantList()), elements());
        check(pps_decoder_pop(&m_decoder));
        return;
    }
    case PPS_TYPE_OBJECT: {
        check(pps_decoder_push(&m_decoder, nullptr));
        fill(place(QVariantMap()), members());
        check(pps_decoder_pop(&m_decoder));
        return;
    }
    case PPS_TYPE_NULL:
    case PPS_TYPE_NONE:
    case PPS_TYPE_UNKNOWN:
    case PPS_TYPE_DELETED:
        break;
    }
    place(QVariant());
}

QVariantList PpsMapDecoder::elements()
{
    QVariantList list;
    const int length = pps_decoder_length(&m_decoder);
    list.reserve(length);
    for (int index = 0; index < length; ++index) {
        check(pps_decoder_goto_index(&m_decoder, index));
        value([&](auto initial) -> QVariant& {
            list.append(QVariant(initial));
            return list.last();
        });
    }
    return list;
}

} // namespace tamo
