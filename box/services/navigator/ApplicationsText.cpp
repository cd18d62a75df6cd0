// SPDX-License-Identifier: Apache-2.0
#include "ApplicationsText.h"

#include "pps/MessageReader.h"

#include <array>

namespace tamobox {

namespace {

constexpr std::array<const char*, 3> stateNames = {"fullscreen", "thumbnail", "invisible"};

void writeApplication(MessageWriter& message, const WindowGroup& application)
{
    message.startObject(nullptr)
        .add("group", application.group)
        .add("pid", static_cast<int>(application.process))
        .add("name", application.name)
        .add("listening", application.listening)
        .add("state", stateNames[static_cast<std::size_t>(application.state)])
        .add("active", application.active)
        .add("angle", application.angle)
        .add("rotationLocked", application.rotationLocked)
        .add("swipeStart", application.wantsSwipeStart);
    if (application.turningTo)
        message.add("turningTo", *application.turningTo);
    if (application.badge)
        message.add("badge", *application.badge);
    if (application.closePrompt)
        message.startObject("closePrompt")
            .add("title", application.closePrompt->title)
            .add("message", application.closePrompt->message)
            .endObject();
    if (!application.uris.empty()) {
        message.startArray("uris");
        for (const UriIcon& uri : application.uris)
            message.startObject(nullptr)
                .add("icon", uri.icon)
                .add("label", uri.label)
                .add("category", uri.category)
                .add("url", uri.url)
                .endObject();
        message.endArray();
    }
    message.endObject();
}

WindowState stateNamed(const std::string& name)
{
    for (std::size_t i = 0; i < stateNames.size(); ++i)
        if (name == stateNames[i])
            return static_cast<WindowState>(i);
    return WindowState::Fullscreen;
}

std::vector<UriIcon> readUris(MessageReader& reader)
{
    std::vector<UriIcon> uris;
    if (!reader.enter("uris"))
        return uris;
    while (reader.next()) {
        if (!reader.enter(nullptr))
            continue;
        const auto text = [&](const char* member) { return reader.string(member).value_or(""); };
        uris.push_back({text("icon"), text("label"), text("category"), text("url")});
        reader.leave();
    }
    reader.leave();
    return uris;
}

WindowGroup readApplication(MessageReader& reader)
{
    WindowGroup application;
    application.process = reader.integer("pid").value_or(0);
    application.group = "app-" + std::to_string(application.process);
    application.name = reader.string("name").value_or("");
    application.state = stateNamed(reader.string("state").value_or(""));
    application.active = reader.boolean("active").value_or(true);
    application.angle = reader.integer("angle").value_or(0);
    application.turningTo = reader.integer("turningTo");
    application.rotationLocked = reader.boolean("rotationLocked").value_or(false);
    application.wantsSwipeStart = reader.boolean("swipeStart").value_or(false);
    application.badge = reader.integer("badge");
    if (reader.enter("closePrompt")) {
        application.closePrompt =
            ClosePrompt{reader.string("title").value_or(""), reader.string("message").value_or("")};
        reader.leave();
    }
    application.uris = readUris(reader);
    return application;
}

} // namespace

void writeApplications(MessageWriter& message, const ApplicationTable& table)
{
    message.add("foreground", table.foregroundGroup()).startArray("applications");
    for (const WindowGroup& application : table.all())
        writeApplication(message, application);
    message.endArray().add("locked", table.locked);
}

ApplicationTable readApplications(const std::string& text)
{
    ApplicationTable table;
    MessageReader reader(text);
    if (!reader.enter("@applications"))
        return table;
    table.locked = reader.boolean("locked").value_or(false);
    const std::string foreground = reader.string("foreground").value_or("");
    if (!reader.enter("applications"))
        return table;
    while (reader.next()) {
        if (!reader.enter(nullptr))
            continue;
        const WindowGroup application = readApplication(reader);
        if (application.process > 0 && table.find(application.process) == nullptr)
            table.restore(application);
        reader.leave();
    }
    table.restoreForeground(foreground);
    return table;
}

} // namespace tamobox
