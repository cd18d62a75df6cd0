// SPDX-License-Identifier: Apache-2.0
#include "CatalogueReader.h"

#include "common/Failure.h"
#include "common/Printable.h"

#include <algorithm>
#include <set>

namespace tamobox {

namespace {

constexpr std::size_t longestCatalogueText = 1024; // bytes

// The parser lets half of a surrogate pair through; no message can carry it.
bool holdsSurrogate(const std::string& text)
{
    for (std::size_t i = 0; i + 1 < text.size(); ++i)
        if (text[i] == '\xed' && static_cast<unsigned char>(text[i + 1]) >= 0xa0)
            return true;
    return false;
}

} // namespace

CatalogueReader::CatalogueReader(const rapidjson::Value& value, std::string source,
                                 std::string path)
    : m_value(&value), m_source(std::move(source)), m_path(std::move(path))
{
    if (!value.IsObject())
        throw Failure(m_source + ": " + (m_path.empty() ? "the whole" : m_path) +
                      " must be an object");
}

void CatalogueReader::allow(const std::vector<std::string>& names) const
{
    std::set<std::string> seen;
    for (const auto& member : m_value->GetObject()) {
        const std::string name(member.name.GetString(), member.name.GetStringLength());
        if (std::find(names.begin(), names.end(), name) == names.end()) {
            std::string known;
            for (const std::string& allowed : names)
                known += (known.empty() ? "" : ", ") + allowed;
            const std::string shown = isPrintable(name) && name.size() <= 64 ? name : "?";
            fail(shown, "is not known here; there are: " + known);
        }
        if (!seen.insert(name).second)
            fail(name, "is there twice");
    }
}

bool CatalogueReader::has(const char* name) const
{
    return m_value->HasMember(name);
}

std::string CatalogueReader::text(const char* name) const
{
    const rapidjson::Value& value = required(name);
    if (!value.IsString())
        fail(name, "must be a text");
    std::string text(value.GetString(), value.GetStringLength());
    if (text.empty() || text.size() > longestCatalogueText)
        fail(name, "must be a text of 1 to " + std::to_string(longestCatalogueText) + " bytes");
    if (!isPrintable(text) || holdsSurrogate(text))
        fail(name, "must not hold control characters or halves of characters");
    return text;
}

std::string CatalogueReader::textOr(const char* name, const char* otherwise) const
{
    return has(name) ? text(name) : otherwise;
}

int CatalogueReader::integer(const char* name, int lowest, int highest) const
{
    const rapidjson::Value& value = required(name);
    if (!value.IsInt() || value.GetInt() < lowest || value.GetInt() > highest)
        fail(name, "must be a whole number from " + std::to_string(lowest) + " to " +
                       std::to_string(highest));
    return value.GetInt();
}

std::optional<CatalogueReader> CatalogueReader::object(const char* name) const
{
    if (!has(name))
        return std::nullopt;
    return CatalogueReader(required(name), m_source, pathOf(name));
}

std::vector<CatalogueReader> CatalogueReader::elements(const char* name) const
{
    const rapidjson::Value& array = required(name);
    if (!array.IsArray())
        fail(name, "must be an array");
    std::vector<CatalogueReader> elements;
    for (rapidjson::SizeType i = 0; i < array.Size(); ++i)
        elements.emplace_back(array[i], m_source, pathOf(name) + '[' + std::to_string(i) + ']');
    return elements;
}

const rapidjson::Value& CatalogueReader::required(const char* name) const
{
    const auto member = m_value->FindMember(name);
    if (member == m_value->MemberEnd())
        fail(name, "is missing");
    return member->value;
}

std::string CatalogueReader::pathOf(const std::string& name) const
{
    return m_path.empty() ? name : m_path + '.' + name;
}

void CatalogueReader::fail(const std::string& name, const std::string& what) const
{
    throw Failure(m_source + ": " + pathOf(name) + ' ' + what);
}

} // namespace tamobox
