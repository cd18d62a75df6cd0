// SPDX-License-Identifier: Apache-2.0
#include "PowerService.h"

#include "common/Duration.h"
#include "common/Failure.h"

#include <algorithm>
#include <array>

namespace tamobox {

namespace {

constexpr std::array<const char*, 3> chargerStates = {"NONE", "CHARGE", "PLUGGED"};

// How often the client of a drain hears of it at least, so that it notices when this service has
// died.
constexpr auto longestSilence = std::chrono::seconds(1);

int checkedLevel(std::optional<int> level, const std::string& what)
{
    if (!level || *level < 0 || *level > 100)
        throw Failure(what + " must be a whole number from 0 to 100");
    return *level;
}

} // namespace

PowerService::PowerService(EventLoop& loop)
    : m_battery("services/power/battery")
    , m_charger("services/power/charger")
    , m_timer(loop, [this] { continueDrain(); })
    , m_control(
          loop, "box/power",
          {{"level", [this](const auto&, auto& arguments) { return setLevel(arguments); }},
           {"charger", [this](const auto&, auto& arguments) { return setCharger(arguments); }},
           {"drain", [this](const auto& request,
                            auto& arguments) { return startDrain(request, arguments); }}},
          [this](MailboxServer::Client client) { clientLeft(client); })
{
}

PowerService::Outcome PowerService::setLevel(MessageReader& arguments)
{
    const int level = checkedLevel(arguments.integer("level"), "the level");
    stopDrain("the level was set to " + std::to_string(level) + " meanwhile");
    m_battery.publish("StateOfCharge", level);
    return Outcome::Done;
}

PowerService::Outcome PowerService::setCharger(MessageReader& arguments)
{
    const std::string state = arguments.string("state").value_or("");
    if (std::find(chargerStates.begin(), chargerStates.end(), state) == chargerStates.end())
        throw Failure("the charger's state must be NONE, CHARGE or PLUGGED");
    m_charger.publish("ChargerInfo", state);
    return Outcome::Done;
}

PowerService::Outcome PowerService::startDrain(const ControlRequest& request,
                                               MessageReader& arguments)
{
    std::optional<int> first = arguments.integer("from");
    if (!arguments.has("from")) {
        first = publishedLevel();
        if (!first)
            throw Failure("the battery's level is unknown; say with from where to begin");
    }
    const int from = checkedLevel(first, "from");
    const int to = checkedLevel(arguments.integer("to"), "to");
    if (to >= from)
        throw Failure("a battery drains downwards: to (" + std::to_string(to) +
                      ") must be below from (" + std::to_string(from) + ')');
    const std::optional<int> milliseconds = arguments.integer("milliseconds");
    if (!milliseconds || *milliseconds < 1 || *milliseconds > longestDuration.count())
        throw Failure("milliseconds must be a whole number from 1 to " +
                      std::to_string(longestDuration.count()));
    stopDrain("another drain has been started");
    m_drain = Drain{
        request, {from, to, std::chrono::milliseconds(*milliseconds)}, EventLoop::Clock::now()};
    continueDrain();
    return Outcome::GoesOn;
}

void PowerService::continueDrain()
{
    if (!m_drain)
        return;
    const auto report = [this](int level) {
        m_control.report(m_drain->request,
                         [&](MessageWriter& members) { members.add("level", level); });
    };
    const auto now = EventLoop::Clock::now();
    const DrainSchedule& schedule = m_drain->schedule;
    const int stepBefore = m_drain->nextStep;
    // Late is better than never: every percent is published, also when the machine was busy.
    for (int& step = m_drain->nextStep;
         step <= schedule.lastStep() && m_drain->begin + schedule.due(step) <= now; ++step) {
        m_battery.publish("StateOfCharge", schedule.level(step));
        report(schedule.level(step));
    }
    if (m_drain->nextStep > schedule.lastStep()) {
        m_control.accept(m_drain->request);
        m_drain.reset();
        return;
    }
    if (m_drain->nextStep == stepBefore)
        report(schedule.level(stepBefore - 1));
    m_timer.startAt(std::min(m_drain->begin + schedule.due(m_drain->nextStep),
                             now + EventLoop::Clock::duration(longestSilence)));
}

void PowerService::stopDrain(const std::string& reason)
{
    if (!m_drain)
        return;
    const int level = m_drain->schedule.level(m_drain->nextStep - 1);
    m_control.refuse(m_drain->request,
                     "the drain ended at " + std::to_string(level) + ": " + reason);
    m_drain.reset();
    m_timer.stop();
}

void PowerService::clientLeft(MailboxServer::Client client)
{
    if (!m_drain || m_drain->request.client != client)
        return;
    m_drain.reset();
    m_timer.stop();
}

std::optional<int> PowerService::publishedLevel() const
{
    const std::optional<std::string> text = m_battery.published();
    if (!text)
        return std::nullopt;
    MessageReader message(*text);
    if (!message.enter("@battery"))
        return std::nullopt;
    return message.integer("StateOfCharge");
}

} // namespace tamobox
