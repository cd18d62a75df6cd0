// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_TESTS_SUBSTITUTEPROVIDER_H
#define TAMO_TESTS_SUBSTITUTEPROVIDER_H

#include "SubstituteCore.h"

#include <tamomock/ZelEventProvider.h>

#include <string>
#include <utility>

namespace tamotest {

/**
 * What each service has that delivers events, on top of the service's own interface: its events
 * come to the channel that was active in the thread that asked.
 *
 * Calls go into the journal as "<name>.requestEvents" and "<name>.stopEvents", with the flags;
 * getDomain() does not.
 */
template<class Interface>
class EventProvider : public Interface
{
public:
    EventProvider(CallJournal& journal, SubstituteCore& core, std::string name, int domain)
        : m_journal(journal), m_core(core), m_name(std::move(name)), m_domain(domain)
    {
    }

    /** Has an event of the service come to whoever asked. False: nobody has. */
    bool deliver(int code, const EventContent& content = {})
    {
        return m_core.deliver(m_domain, code, content) > 0;
    }

    int requestEvents(int flags) override { return request("requestEvents", flags, true); }
    int getDomain() override { return m_domain; }
    int stopEvents(int flags) override { return request("stopEvents", flags, false); }

protected:
    CallJournal& m_journal;
    SubstituteCore& m_core;
    const std::string m_name;

private:
    int request(const char* operation, int flags, bool isRequested)
    {
        if (!m_journal.enter((m_name + '.' + operation).c_str(), flags))
            return -1;
        m_core.setRequested(m_domain, isRequested);
        return 0;
    }

    const int m_domain;
};

/** A service that delivers events and offers nothing else. */
using SubstituteProvider = EventProvider<tamomock::ZelEventProvider>;

} // namespace tamotest

#endif
