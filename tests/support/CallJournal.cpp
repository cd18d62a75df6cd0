// SPDX-License-Identifier: Apache-2.0
#include "CallJournal.h"

#include <algorithm>
#include <utility>

namespace tamotest {

using Lock = std::unique_lock<std::mutex>;

bool eventually(const std::function<bool()>& condition, std::chrono::milliseconds limit)
{
    const auto end = std::chrono::steady_clock::now() + limit;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > end)
            return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    return true;
}

void CallJournal::fail(const std::string& operation, int nth, int error)
{
    const Lock lock(m_mutex);
    m_plans[operation].errorOfCall[m_counts[operation] + nth] = error;
}

void CallJournal::failAlways(const std::string& operation, int error)
{
    const Lock lock(m_mutex);
    Plan& plan = m_plans[operation];
    plan.isAlways = true;
    plan.error = error;
}

void CallJournal::succeed(const std::string& operation)
{
    const Lock lock(m_mutex);
    m_plans.erase(operation);
}

std::vector<std::string> CallJournal::unmetFailures() const
{
    const Lock lock(m_mutex);
    std::vector<std::string> operations;
    for (const auto& [operation, plan] : m_plans) {
        if (!plan.errorOfCall.empty())
            operations.push_back(operation);
    }
    return operations;
}

void CallJournal::before(const std::string& operation, std::function<void()> function)
{
    const Lock lock(m_mutex);
    m_functions[operation] = std::move(function);
}

std::vector<Call> CallJournal::calls(const std::string& operation) const
{
    const Lock lock(m_mutex);
    std::vector<Call> found;
    std::copy_if(m_calls.begin(), m_calls.end(), std::back_inserter(found), [&](const Call& call) {
        return operation.empty() || call.operation == operation;
    });
    return found;
}

int CallJournal::count(const std::string& operation) const
{
    const Lock lock(m_mutex);
    const auto found = m_counts.find(operation);
    return found != m_counts.end() ? found->second : 0;
}

bool CallJournal::waitForCount(const std::string& operation, int count,
                               std::chrono::milliseconds limit) const
{
    Lock lock(m_mutex);
    return m_called.wait_for(lock, limit, [&] {
        const auto found = m_counts.find(operation);
        return found != m_counts.end() && found->second >= count;
    });
}

void CallJournal::setKeeping(bool isKeeping)
{
    const Lock lock(m_mutex);
    m_isKeeping = isKeeping;
}

void CallJournal::clear()
{
    const Lock lock(m_mutex);
    m_calls.clear();
    m_counts.clear();
    m_plans.clear();
    m_functions.clear();
    m_isKeeping = true;
}

void CallJournal::append(std::string& text, const char* argument)
{
    text += text.empty() ? "" : ", ";
    text += argument ? argument : "null";
}

void CallJournal::append(std::string& text, const void* argument)
{
    append(text, argument ? "pointer" : nullptr);
}

void CallJournal::append(std::string& text, int argument)
{
    append(text, std::to_string(argument).c_str());
}

void CallJournal::append(std::string& text, bool argument)
{
    append(text, argument ? "true" : "false");
}

bool CallJournal::enterWith(const char* operation, std::string arguments, int errnoBefore)
{
    std::function<void()> function;
    bool isToFail = false;
    int errnoAfter = errnoBefore;
    {
        const Lock lock(m_mutex);
        const int number = ++m_counts[operation];
        if (m_isKeeping) {
            m_calls.push_back(
                {operation, std::move(arguments), std::this_thread::get_id(), errnoBefore});
        }
        if (const auto plan = m_plans.find(operation); plan != m_plans.end()) {
            const auto planned = plan->second.errorOfCall.find(number);
            const bool isPlanned = planned != plan->second.errorOfCall.end();
            isToFail = isPlanned || plan->second.isAlways;
            const int error = isPlanned ? planned->second : plan->second.error;
            if (isToFail && error != 0)
                errnoAfter = error;
            if (isPlanned)
                plan->second.errorOfCall.erase(planned);
        }
        if (const auto found = m_functions.find(operation); found != m_functions.end())
            function = found->second;
        m_called.notify_all();
    }
    if (function)
        function();
    errno = errnoAfter;
    return !isToFail;
}

} // namespace tamotest
