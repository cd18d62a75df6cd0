// SPDX-License-Identifier: Apache-2.0
#include "PpsMapEncoder.h"

#include <tamo/Exception.h>

#include <QtCore/QMetaType>

namespace tamo {

namespace {

void check(int result)
{
    if (result != 0)
        throw Exception();
}

const char* checked(const char* text)
{
    if (text == nullptr)
        throw Exception();
    return text;
}

/** What a value holds, where it lies: QVariant's own accessors would copy it. */
template<typename T>
const T& contents(const QVariant& value)
{
    return *static_cast<const T*>(value.constData());
}

} // namespace

PpsMapEncoder::PpsMapEncoder()
{
    pps_encoder_initialize(&m_encoder, false);
}

PpsMapEncoder::~PpsMapEncoder()
{
    pps_encoder_cleanup(&m_encoder);
}

void PpsMapEncoder::addMembers(const QVariantMap& map)
{
    for (auto entry = map.cbegin(); entry != map.cend(); ++entry)
        addValue(checked(m_name.convert(entry.key())), entry.value());
}

QByteArray PpsMapEncoder::text()
{
    const char* const buffer = checked(pps_encoder_buffer(&m_encoder));
    return QByteArray(buffer,
                      static_cast<decltype(QByteArray().size())>(pps_encoder_length(&m_encoder)));
}

void PpsMapEncoder::addValue(const char* name, const QVariant& value)
{
    switch (value.userType()) {
    case QMetaType::UnknownType:
        return check(pps_encoder_add_null(&m_encoder, name));
    case QMetaType::Bool:
        return check(pps_encoder_add_bool(&m_encoder, name, contents<bool>(value)));
    case QMetaType::Int:
        return check(pps_encoder_add_int(&m_encoder, name, contents<int>(value)));
    case QMetaType::Double:
        return check(pps_encoder_add_double(&m_encoder, name, contents<double>(value)));
    case QMetaType::QString:
        return check(pps_encoder_add_string(&m_encoder, name,
                                            checked(m_string.convert(contents<QString>(value)))));
    case QMetaType::QVariantMap:
        return addObject(name, contents<QVariantMap>(value));
    case QMetaType::QVariantList:
        return addArray(name, contents<QVariantList>(value));
    default:
        throw Exception();
    }
}

void PpsMapEncoder::addObject(const char* name, const QVariantMap& map)
{
    check(pps_encoder_start_object(&m_encoder, name));
    addMembers(map);
    check(pps_encoder_end_object(&m_encoder));
}

void PpsMapEncoder::addArray(const char* name, const QVariantList& list)
{
    check(pps_encoder_start_array(&m_encoder, name));
    for (const QVariant& element : list)
        addValue(nullptr, element);
    check(pps_encoder_end_array(&m_encoder));
}

} // namespace tamo
