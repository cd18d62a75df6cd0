// SPDX-License-Identifier: Apache-2.0
#include "NetworkService.h"

#include "common/Failure.h"
#include "services/RequestValues.h"

#include <fcntl.h>

#include <algorithm>
#include <array>
#include <string>
#include <utility>

namespace tamobox {

namespace {

constexpr int mostChanges = 100'000; // of one command
constexpr int changesAtATime = 64;   // before others have their turn
constexpr std::size_t longestHost = 253;

// How often the client of a command hears of it at least, so that it notices when this service has
// died.
constexpr auto longestSilence = std::chrono::seconds(1);

struct ProxyArgument
{
    const char* host; // with its port
    Proxy NetworkState::*proxy;
};

constexpr std::array<ProxyArgument, 3> proxyArguments = {{
    {"httpProxyHost", &NetworkState::http},
    {"httpsProxyHost", &NetworkState::https},
    {"ftpProxyHost", &NetworkState::ftp},
}};

void checkHost(const Proxy& proxy)
{
    const bool isPlain = std::all_of(proxy.host.begin(), proxy.host.end(),
                                     [](char c) { return c > ' ' && c < '\x7f'; });
    if (!isPlain || proxy.host.size() > longestHost)
        throw Failure("a proxy's host must be at most 253 characters of ASCII without spaces");
}

} // namespace

NetworkService::NetworkService(EventLoop& loop)
    : m_loop(loop)
    , m_complaints(loop)
    , m_status(NetworkState::object, O_RDWR | O_NONBLOCK)
    , m_workTimer(loop, [this] { work(); })
    , m_signTimer(loop, [this] { reassure(); })
    , m_post(
          loop, m_complaints, [this] { return NetworkEvent{m_state}; }, [this] { answer(); })
    , m_control(
          loop, "box/network",
          {{"up", [this](const auto& request, auto&) { return setAvailable(request, true); }},
           {"down", [this](const auto& request, auto&) { return setAvailable(request, false); }},
           {"flap",
            [this](const auto& request, auto& arguments) { return flap(request, arguments); }},
           {"proxies", [this](const auto& request,
                              auto& arguments) { return setProxies(request, arguments); }},
           {"event", [this](const auto& request,
                            auto& arguments) { return tellEvent(request, arguments); }}},
          [this](MailboxServer::Client client) { clientLeft(client); })
{
    m_state.isAvailable = false;
    if (const std::optional<std::string> text = m_status.read())
        takeOver(*text);
    else
        change(m_state);
    m_loop.watch(m_status.descriptor(), [this] { readOthers(); });
}

NetworkService::~NetworkService()
{
    m_loop.unwatch(m_status.descriptor());
}

NetworkService::Outcome NetworkService::setAvailable(const ControlRequest& request,
                                                     bool isAvailable)
{
    return queue({request, 1, [this, isAvailable] {
                      NetworkState state = m_state;
                      state.isAvailable = isAvailable;
                      change(state);
                  }});
}

NetworkService::Outcome NetworkService::flap(const ControlRequest& request,
                                             MessageReader& arguments)
{
    return queue({request, requiredInteger(arguments, "count", 1, mostChanges), [this] {
                      NetworkState state = m_state;
                      state.isAvailable = !*m_state.isAvailable;
                      change(state);
                  }});
}

NetworkService::Outcome NetworkService::setProxies(const ControlRequest& request,
                                                   MessageReader& arguments)
{
    if (arguments.has("available"))
        throw Failure("available is not a proxy's; there are the commands up and down");
    NetworkState given;
    given.read(arguments);
    std::vector<Proxy NetworkState::*> changed;
    for (const ProxyArgument& argument : proxyArguments) {
        if (!arguments.has(argument.host))
            continue;
        checkHost(given.*argument.proxy);
        changed.push_back(argument.proxy);
    }
    const bool isLoginGiven = arguments.has("httpProxyLoginRequired");
    return queue({request, 1, [this, given, changed, isLoginGiven] {
                      NetworkState state = m_state;
                      for (const auto proxy : changed)
                          state.*proxy = given.*proxy;
                      if (isLoginGiven)
                          state.isHttpLoginRequired = given.isHttpLoginRequired;
                      change(state);
                  }});
}

NetworkService::Outcome NetworkService::tellEvent(const ControlRequest& request,
                                                  MessageReader& arguments)
{
    const std::optional<int> code = arguments.integer("code");
    if (!code)
        throw Failure("code must be a whole number");
    return queue({request, 1, [this, code] { m_post.tell({m_state, code}); }});
}

NetworkService::Outcome NetworkService::queue(Job job)
{
    if (m_jobs.empty() && m_done.empty())
        m_signTimer.startAt(EventLoop::Clock::now() + longestSilence);
    m_jobs.push_back(std::move(job));
    work();
    return Outcome::GoesOn;
}

void NetworkService::work()
{
    readOthers();
    for (int i = 0; i < changesAtATime && !m_jobs.empty(); ++i) {
        Job& job = m_jobs.front();
        job.step();
        if (--job.remaining > 0)
            continue;
        m_done.push_back(job.request);
        m_jobs.pop_front();
    }
    if (!m_jobs.empty())
        m_workTimer.startAt(EventLoop::Clock::now());
    answer();
}

void NetworkService::answer()
{
    if (m_done.empty() || !m_post.isDelivered())
        return;
    for (const ControlRequest& request : std::exchange(m_done, {}))
        m_control.accept(request);
    if (m_jobs.empty())
        m_signTimer.stop();
}

void NetworkService::reassure()
{
    const auto nothing = [](MessageWriter&) {};
    for (const ControlRequest& request : m_done)
        m_control.report(request, nothing);
    for (const Job& job : m_jobs)
        m_control.report(job.request, nothing);
    m_signTimer.startAt(EventLoop::Clock::now() + longestSilence);
}

void NetworkService::clientLeft(MailboxServer::Client client)
{
    m_done.erase(
        std::remove_if(m_done.begin(), m_done.end(),
                       [=](const ControlRequest& request) { return request.client == client; }),
        m_done.end());
    m_jobs.erase(std::remove_if(m_jobs.begin(), m_jobs.end(),
                                [=](const Job& job) { return job.request.client == client; }),
                 m_jobs.end());
    if (m_done.empty() && m_jobs.empty())
        m_signTimer.stop();
}

// Published first: whoever is told and asks must not hear less than what it was told.
void NetworkService::change(const NetworkState& state)
{
    MessageWriter message;
    message.object("status");
    state.write(message);
    m_status.write(message.text());
    m_state = state;
    m_post.tell({m_state});
}

void NetworkService::readOthers()
{
    const std::optional<std::string> text = m_status.read();
    if (!text)
        return;
    if (takeOver(*text))
        m_post.tell({m_state});
}

// What cannot be read stays where it is until a command publishes the next state.
bool NetworkService::takeOver(const std::string& text)
{
    try {
        NetworkState state = NetworkState::fromMessage(text);
        if (!state.isAvailable)
            throw Failure("/pps/" + std::string(NetworkState::object) +
                          ": available must be true or false");
        m_state = state;
        return true;
    } catch (const Failure& failure) {
        m_complaints.add(failure.what());
        return false;
    }
}

} // namespace tamobox
