// SPDX-License-Identifier: Apache-2.0
#include "JsonText.h"

#include "common/Failure.h"

#include <rapidjson/error/en.h>

#include <algorithm>
#include <iterator>

namespace tamobox {

namespace {

std::string placeIn(const std::string& text, std::size_t offset)
{
    const auto end = text.begin() + static_cast<std::ptrdiff_t>(std::min(offset, text.size()));
    const auto lines = std::count(text.begin(), end, '\n');
    const auto lineBegin = std::find(std::make_reverse_iterator(end), text.rend(), '\n').base();
    return "line " + std::to_string(lines + 1) + ", column " + std::to_string(end - lineBegin + 1);
}

} // namespace

JsonText::JsonText(const std::string& text, const std::string& source)
{
    // The parser would take a zero byte for the end of the text.
    if (const std::size_t zero = text.find('\0'); zero != std::string::npos)
        throw Failure(source + ": " + placeIn(text, zero) + ": There is a zero byte.");
    // Iterative: a text may be nested deeper than the stack is. Strict about encodings.
    // Not with full precision, which is undefined for some zeros, and wanted for no number here.
    constexpr unsigned flags =
        rapidjson::kParseIterativeFlag | rapidjson::kParseValidateEncodingFlag;
    m_document.Parse<flags>(text.data(), text.size());
    if (m_document.HasParseError())
        throw Failure(source + ": " + placeIn(text, m_document.GetErrorOffset()) + ": " +
                      rapidjson::GetParseError_En(m_document.GetParseError()));
}

} // namespace tamobox
