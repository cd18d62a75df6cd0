// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_JSONTEXT_H
#define TAMOBOX_JSONTEXT_H

#include <rapidjson/document.h>

#include <string>

namespace tamobox {

/** A text of JSON, read. */
class JsonText
{
public:
    /** @throws Failure with the line and column where the text is not JSON */
    JsonText(const std::string& text, const std::string& source);

    const rapidjson::Value& root() const { return m_document; }

private:
    rapidjson::Document m_document;
};

} // namespace tamobox

#endif
