// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_JSON_H
#define TAMOBOX_JSON_H

#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include <string>

namespace tamobox {

/** Writes one JSON text, without line ends, value after value. */
class Json
{
public:
    Json() : m_writer(m_buffer) {}

    Json& startObject() { return done(m_writer.StartObject()); }
    Json& endObject() { return done(m_writer.EndObject()); }
    Json& startArray() { return done(m_writer.StartArray()); }
    Json& endArray() { return done(m_writer.EndArray()); }
    Json& null() { return done(m_writer.Null()); }
    Json& boolean(bool value) { return done(m_writer.Bool(value)); }
    Json& number(std::int64_t value) { return done(m_writer.Int64(value)); }
    Json& number(int value) { return done(m_writer.Int(value)); }
    Json& number(double value) { return done(m_writer.Double(value)); }

    Json& key(const std::string& name)
    {
        return done(m_writer.Key(name.data(), static_cast<rapidjson::SizeType>(name.size())));
    }

    Json& string(const std::string& value)
    {
        return done(m_writer.String(value.data(), static_cast<rapidjson::SizeType>(value.size())));
    }

    /** The text so far. */
    std::string text() const { return std::string(m_buffer.GetString(), m_buffer.GetSize()); }

private:
    Json& done(bool) { return *this; } // the writer fails only where its stream does

    rapidjson::StringBuffer m_buffer;
    rapidjson::Writer<rapidjson::StringBuffer> m_writer;
};

} // namespace tamobox

#endif
