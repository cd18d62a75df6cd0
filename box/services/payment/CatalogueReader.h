// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_CATALOGUEREADER_H
#define TAMOBOX_CATALOGUEREADER_H

#include <rapidjson/document.h>

#include <optional>
#include <string>
#include <vector>

namespace tamobox {

/**
 * One object of a text of JSON, whose members are checked as they are read. Every failure is a
 * Failure that names the source and the member's path, such as `goods[2].price`.
 */
class CatalogueReader
{
public:
    /** @param value must outlive the reader; a Failure where it is no object */
    CatalogueReader(const rapidjson::Value& value, std::string source, std::string path);

    /** Members that are not in the list, and members that are there twice, are failures. */
    void allow(const std::vector<std::string>& names) const;

    bool has(const char* name) const;

    /** A text that must be there and is not empty, of at most 1,024 bytes without control
     * characters. */
    std::string text(const char* name) const;

    /** The same where it is there. */
    std::string textOr(const char* name, const char* otherwise) const;

    int integer(const char* name, int lowest, int highest) const;

    /** A member that is an object; nothing where it is not there. */
    std::optional<CatalogueReader> object(const char* name) const;

    /** The elements of an array that must be there, all objects. */
    std::vector<CatalogueReader> elements(const char* name) const;

    /** Throws the Failure that a member is wrong. */
    [[noreturn]] void fail(const std::string& name, const std::string& what) const;

private:
    const rapidjson::Value& required(const char* name) const;
    std::string pathOf(const std::string& name) const;

    const rapidjson::Value* m_value;
    std::string m_source;
    std::string m_path;
};

} // namespace tamobox

#endif
