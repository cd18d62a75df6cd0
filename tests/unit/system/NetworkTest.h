// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_TESTS_NETWORKTEST_H
#define TAMO_TESTS_NETWORKTEST_H

#include "SubstitutePlatform.h"

#include <QObject>

#include <functional>
#include <mutex>
#include <sstream>
#include <string>
#include <vector>

namespace tamotest {

/** What is written to std::cerr while it lives. Read it when nobody writes. */
class ErrorCapture
{
public:
    ErrorCapture();
    ~ErrorCapture();
    ErrorCapture(const ErrorCapture&) = delete;
    ErrorCapture& operator=(const ErrorCapture&) = delete;

    std::string text() const { return m_text.str(); }

private:
    std::stringbuf m_text;
    std::streambuf* const m_before;
};

/** Notes by name what happened, in its order; from any thread. */
class Notes
{
public:
    void add(const std::string& note);
    std::vector<std::string> all() const;
    int count(const std::string& note) const;

private:
    mutable std::mutex m_mutex;
    std::vector<std::string> m_notes;
};

/** Network status on a substitute platform. */
class NetworkTest : public PlatformTest
{
protected:
    SubstituteNetStatus& netStatus = platform.netStatus();

    /** Waits until the events of the network status flow. */
    void awaitEvents();

    /** Has an event come, and waits until the dispatch thread has done with it. */
    void deliver(int code, bool isAvailable = false);

    /** Has a report come, as deliver(). */
    void report(bool isAvailable) { deliver(NETSTATUS_INFO, isAvailable); }
};

} // namespace tamotest

#endif
