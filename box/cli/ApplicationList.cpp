// SPDX-License-Identifier: Apache-2.0
#include "ApplicationList.h"

#include "MessageJson.h"
#include "TextTable.h"

#include "common/Printable.h"
#include "pps/ObjectFile.h"

#include <rapidjson/document.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include <fcntl.h>

#include <vector>

namespace tamobox {

namespace {

using Row = std::vector<std::string>;

const Row heading = {" ",       "group", "pid",      "state", "active",
                     "listens", "angle", "rotation", "name"};

std::string text(const rapidjson::Value& object, const char* member)
{
    const auto found = object.FindMember(member);
    if (found == object.MemberEnd() || !found->value.IsString())
        return {};
    return printable(found->value.GetString());
}

std::string number(const rapidjson::Value& object, const char* member)
{
    const auto found = object.FindMember(member);
    const bool isThere = found != object.MemberEnd() && found->value.IsInt();
    return isThere ? std::to_string(found->value.GetInt()) : std::string();
}

bool flag(const rapidjson::Value& object, const char* member)
{
    const auto found = object.FindMember(member);
    return found != object.MemberEnd() && found->value.IsTrue();
}

std::string extrasOf(const rapidjson::Value& application)
{
    std::string lines;
    const std::string indent = "     ";
    if (application.HasMember("badge"))
        lines += indent + "badge " + number(application, "badge") + '\n';
    const auto prompt = application.FindMember("closePrompt");
    if (prompt != application.MemberEnd() && prompt->value.IsObject())
        lines += indent + "close prompt '" + text(prompt->value, "title") +
                 "': " + text(prompt->value, "message") + '\n';
    const auto uris = application.FindMember("uris");
    if (uris != application.MemberEnd() && uris->value.IsArray())
        for (const rapidjson::Value& uri : uris->value.GetArray())
            if (uri.IsObject())
                lines += indent + "icon '" + text(uri, "label") + "': " + text(uri, "url") + '\n';
    return lines;
}

Row rowFor(const rapidjson::Value& application, const std::string& foreground)
{
    const std::string group = text(application, "group");
    return {group == foreground ? "*" : " ",
            group,
            number(application, "pid"),
            text(application, "state"),
            flag(application, "active") ? "yes" : "no",
            flag(application, "listening") ? "yes" : "no",
            number(application, "angle"),
            flag(application, "rotationLocked") ? "locked" : "free",
            text(application, "name")};
}

} // namespace

ApplicationList ApplicationList::read()
{
    ApplicationList list;
    list.m_json = "{\"foreground\":\"\",\"applications\":[],\"locked\":false}";
    const auto message =
        ObjectFile("services/navigator/applications", O_RDONLY | O_NONBLOCK).read();
    if (!message)
        return list;
    rapidjson::Document document;
    document.Parse(messageToJson(*message).c_str());
    const auto object = document.FindMember("@applications");
    if (object == document.MemberEnd())
        return list;
    rapidjson::StringBuffer buffer;
    rapidjson::Writer<rapidjson::StringBuffer> writer(buffer);
    object->value.Accept(writer);
    list.m_json = buffer.GetString();
    return list;
}

std::string ApplicationList::toText() const
{
    rapidjson::Document document;
    document.Parse(m_json.c_str());
    const std::string lockLine = flag(document, "locked") ? "the screen is locked\n" : "";
    const auto applications = document.FindMember("applications");
    if (applications == document.MemberEnd() || !applications->value.IsArray() ||
        applications->value.Empty())
        return "no application\n" + lockLine;
    const std::string foreground = text(document, "foreground");
    std::vector<Row> rows = {heading};
    std::vector<std::string> extras = {""};
    for (const rapidjson::Value& application : applications->value.GetArray()) {
        if (!application.IsObject())
            continue;
        rows.push_back(rowFor(application, foreground));
        extras.push_back(extrasOf(application));
    }
    const std::vector<std::string> lines = tableLines(rows);
    std::string all;
    for (std::size_t i = 0; i < lines.size(); ++i)
        all += lines[i] + extras[i];
    return all + lockLine;
}

} // namespace tamobox
