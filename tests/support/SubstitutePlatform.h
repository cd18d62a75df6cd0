// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_TESTS_SUBSTITUTEPLATFORM_H
#define TAMO_TESTS_SUBSTITUTEPLATFORM_H

#include "CallJournal.h"
#include "LogCapture.h"
#include "SubstituteCore.h"
#include "SubstituteNavigator.h"
#include "SubstituteNetStatus.h"
#include "SubstituteScreen.h"
#include "SubstituteScreenApi.h"

#include <tamomock/ZelApi.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace tamotest {

/**
 * A platform for the library under test, in both seams from its construction to its destruction:
 * the event library, the navigator, the network status and the screen library. Objects of the
 * library are made while it is there, and are gone before it; so a test that makes a
 * tamo::Application, and the Navigator that lives for ever, makes one platform for the whole
 * process (see shared()).
 *
 * Domains beyond these are SubstituteProvider objects of the test's own.
 */
class SubstitutePlatform
{
public:
    SubstitutePlatform();
    ~SubstitutePlatform();

    /** One for the whole process, made by the first call and never destroyed. */
    static SubstitutePlatform& shared();

    CallJournal& journal() { return m_journal; }
    SubstituteCore& core() { return *m_core; }
    SubstituteNavigator& navigator() { return *m_navigator; }
    SubstituteNetStatus& netStatus() { return *m_netStatus; }
    SubstituteScreen& screenEvents() { return *m_screenEvents; }
    SubstituteScreenApi& screen() { return m_screen; }

    /**
     * What should not be there when nothing is registered any more, in words; empty as it should
     * be. Waits for threads that are about to end.
     */
    std::vector<std::string> leftovers();

private:
    std::vector<std::string> leftoversNow() const;

    CallJournal m_journal;
    SubstituteScreenApi m_screen;
    SubstituteCore* m_core = nullptr; // m_api's, as what follows
    SubstituteNavigator* m_navigator = nullptr;
    SubstituteNetStatus* m_netStatus = nullptr;
    SubstituteScreen* m_screenEvents = nullptr;
    std::unique_ptr<tamomock::ZelApi> m_api;
};

/** How many threads this process has. */
int threadCount();

/**
 * A fixture: a platform and the log, both fresh for each test, and afterwards a check that nothing
 * is left of either, threads included. A test whose objects outlive it derives from
 * SharedPlatformTest.
 */
class PlatformTest : public testing::Test
{
protected:
    PlatformTest();
    ~PlatformTest() override;

    void TearDown() override;

private:
    const int m_threadsBefore;

protected:
    SubstitutePlatform platform;
    CallJournal& journal = platform.journal();
    SubstituteCore& core = platform.core();
    SubstituteNavigator& navigator = platform.navigator();
    LogCapture& log = LogCapture::instance();
};

/** The same around the platform that is there for the whole process. */
class SharedPlatformTest : public testing::Test
{
protected:
    SharedPlatformTest();
    ~SharedPlatformTest() override;

    void TearDown() override;

    SubstitutePlatform& platform = SubstitutePlatform::shared();
    CallJournal& journal = platform.journal();
    SubstituteCore& core = platform.core();
    SubstituteNavigator& navigator = platform.navigator();
    LogCapture& log = LogCapture::instance();
};

} // namespace tamotest

#endif
