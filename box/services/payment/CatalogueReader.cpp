// SPDX-License-Identifier: Apache-2.0
#include "CatalogueReader.h"

#include "common/Duration.h"
#include "common/Failure.h"
#include "services/dialog/DialogAnswer.h"

#include <rapidjson/error/en.h>

#include <algorithm>
#include <array>
#include <limits>
#include <set>

namespace tamobox {

namespace {

constexpr std::size_t longestMember = 1024; // bytes
// What an answer of the dialog service has room for; see docs/platform-objects.md.
constexpr std::size_t longestFailure = 256;

std::string placeIn(const std::string& text, std::size_t offset)
{
    const auto end = text.begin() + static_cast<std::ptrdiff_t>(std::min(offset, text.size()));
    const auto lines = std::count(text.begin(), end, '\n');
    const auto lineBegin = std::find(std::make_reverse_iterator(end), text.rend(), '\n').base();
    return "line " + std::to_string(lines + 1) + ", column " + std::to_string(end - lineBegin + 1);
}

// A NUL would end a message's text, and a terminal obeys control characters.
bool isPlain(const std::string& text)
{
    return std::none_of(text.begin(), text.end(),
                        [](char c) { return static_cast<unsigned char>(c) < ' ' || c == '\x7f'; });
}

// The parser lets half of a surrogate pair through; no message can carry it.
bool holdsSurrogate(const std::string& text)
{
    for (std::size_t i = 0; i + 1 < text.size(); ++i)
        if (text[i] == '\xed' && static_cast<unsigned char>(text[i + 1]) >= 0xa0)
            return true;
    return false;
}

struct AnswerName
{
    const char* name;
    Policy::Who who;
    Decision decision;
};

const std::array<AnswerName, 7>& answerNames()
{
    static const std::array<AnswerName, 7> names = {{
        {"ask", Policy::Who::User, {}},
        {"approve", Policy::Who::Itself, {Decision::Kind::Approve}},
        {"cancel", Policy::Who::Itself, {Decision::Kind::Cancel}},
        {"decline", Policy::Who::Itself, {Decision::Kind::Fail, 2, "The payment was declined."}},
        {"fail", Policy::Who::Itself, {Decision::Kind::Fail}},
        {"garbage", Policy::Who::Itself, {Decision::Kind::Garbage}},
        {"never", Policy::Who::Nobody, {}},
    }};
    return names;
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
            const std::string shown = isPlain(name) && name.size() <= 64 ? name : "?";
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
    if (text.empty() || text.size() > longestMember)
        fail(name, "must be a text of 1 to " + std::to_string(longestMember) + " bytes");
    if (!isPlain(text) || holdsSurrogate(text))
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

Policy CatalogueReader::policy() const
{
    allow({"answer", "after", "code", "text"});
    const std::string answer = text("answer");
    const auto found = std::find_if(answerNames().begin(), answerNames().end(),
                                    [&](const AnswerName& known) { return answer == known.name; });
    if (found == answerNames().end())
        fail("answer", "must be ask, approve, cancel, decline, fail, garbage or never");
    Policy policy{found->who, found->decision, {}};
    if (has("after")) {
        const auto delay = parseDuration(text("after"));
        if (policy.who != Policy::Who::Itself)
            fail("after", "does not go with '" + answer + "'");
        if (!delay)
            fail("after", "must be a duration like 500ms, 10s, 2m or 1h, at most a week");
        policy.delay = *delay;
    }
    const bool needsReason = answer == "fail";
    if (needsReason) {
        policy.decision.code = integer("code", 1, std::numeric_limits<int>::max());
        policy.decision.text = text("text");
        if (policy.decision.text.size() > longestFailure)
            fail("text", "must be at most " + std::to_string(longestFailure) + " bytes long");
        if (policy.decision.text == dialogSucceeded)
            fail("text", "must not be what the dialog says when all is well");
    } else if (has("code") || has("text")) {
        fail(has("code") ? "code" : "text", "does not go with '" + answer + "'");
    }
    return policy;
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
