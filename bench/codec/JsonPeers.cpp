// SPDX-License-Identifier: Apache-2.0
#include "JsonPeers.h"

#include <string_view>

namespace tamobench {

namespace {

QString toString(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<int>(text.size()));
}

QVariantMap toMap(simdjson::dom::object object);

QVariant toVariant(simdjson::dom::element element)
{
    using simdjson::dom::element_type;
    switch (element.type()) {
    case element_type::OBJECT:
        return toMap(element.get_object());
    case element_type::ARRAY: {
        QVariantList list;
        for (const simdjson::dom::element item : element.get_array())
            list.append(toVariant(item));
        return list;
    }
    case element_type::STRING:
        return toString(element.get_string());
    case element_type::BOOL:
        return element.get_bool().value();
    case element_type::NULL_VALUE:
        return {};
    default:
        return element.get_double().value();
    }
}

QVariantMap toMap(simdjson::dom::object object)
{
    QVariantMap map;
    for (const simdjson::dom::key_value_pair member : object)
        map.insert(toString(member.key), toVariant(member.value));
    return map;
}

QVariantMap toMap(simdjson::ondemand::object object);

QVariant toVariant(simdjson::ondemand::value value)
{
    using simdjson::ondemand::json_type;
    switch (value.type()) {
    case json_type::object:
        return toMap(value.get_object());
    case json_type::array: {
        QVariantList list;
        for (auto item : value.get_array())
            list.append(toVariant(item.value()));
        return list;
    }
    case json_type::string:
        return toString(value.get_string());
    case json_type::boolean:
        return value.get_bool().value();
    case json_type::number:
        return value.get_double().value();
    default:
        return {};
    }
}

QVariantMap toMap(simdjson::ondemand::object object)
{
    QVariantMap map;
    for (auto member : object) {
        const QString name = toString(member.unescaped_key());
        map.insert(name, toVariant(member.value().value()));
    }
    return map;
}

} // namespace

QVariantMap decodeWithTree(simdjson::dom::parser& parser, const simdjson::padded_string& json)
{
    return toMap(parser.parse(json).get_object());
}

QVariantMap decodeOnDemand(simdjson::ondemand::parser& parser, const simdjson::padded_string& json)
{
    simdjson::ondemand::document document = parser.iterate(json);
    return toMap(document.get_object());
}

} // namespace tamobench
