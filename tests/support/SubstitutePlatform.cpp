// SPDX-License-Identifier: Apache-2.0
#include "SubstitutePlatform.h"

#include <tamomock/ScreenApi.h>

#include <gmock/gmock.h>

#include <filesystem>
#include <iterator>
#include <utility>

namespace tamotest {

SubstitutePlatform::SubstitutePlatform() : m_screen(m_journal)
{
    auto core = std::make_unique<SubstituteCore>(m_journal);
    m_core = core.get();
    auto navigator = std::make_unique<SubstituteNavigator>(m_journal, *m_core);
    m_navigator = navigator.get();
    auto netStatus = std::make_unique<SubstituteNetStatus>(m_journal, *m_core);
    m_netStatus = netStatus.get();
    auto screen = std::make_unique<SubstituteScreen>(m_journal, *m_core, m_screen);
    m_screenEvents = screen.get();
    tamomock::ZelApi::Domains domains;
    domains.core = std::move(core);
    domains.navigator = std::move(navigator);
    domains.netStatus = std::move(netStatus);
    domains.screen = std::move(screen);
    m_api = std::make_unique<tamomock::ZelApi>(std::move(domains));
    tamomock::ZelApi::setInstance(m_api.get());
    tamomock::ScreenApi::setInstance(&m_screen);
}

SubstitutePlatform::~SubstitutePlatform()
{
    tamomock::ScreenApi::clearInstance(&m_screen);
    tamomock::ZelApi::clearInstance(m_api.get());
}

SubstitutePlatform& SubstitutePlatform::shared()
{
    static auto& platform = *new SubstitutePlatform;
    return platform;
}

std::vector<std::string> SubstitutePlatform::leftovers()
{
    eventually([this] { return leftoversNow().empty(); }, std::chrono::seconds(10));
    return leftoversNow();
}

std::vector<std::string> SubstitutePlatform::leftoversNow() const
{
    std::vector<std::string> found = m_core->leftovers();
    for (const std::string& operation : m_journal.unmetFailures())
        found.push_back("planned failure of " + operation);
    if (const int contexts = m_screen.contextCount())
        found.push_back("screen contexts: " + std::to_string(contexts));
    return found;
}

int threadCount()
{
    const std::filesystem::directory_iterator tasks("/proc/self/task");
    return static_cast<int>(std::distance(begin(tasks), end(tasks)));
}

// ThreadSanitizer starts a thread of its own with the first one of the program.
static int threadCountAfterAny()
{
    std::thread([] {}).join();
    return threadCount();
}

PlatformTest::PlatformTest() : m_threadsBefore(threadCountAfterAny())
{
    log.clear();
}

PlatformTest::~PlatformTest() = default;

void PlatformTest::TearDown()
{
    EXPECT_THAT(platform.leftovers(), testing::IsEmpty());
    EXPECT_TRUE(eventually([this] { return threadCount() <= m_threadsBefore; }))
        << threadCount() << " threads, " << m_threadsBefore << " before";
}

SharedPlatformTest::SharedPlatformTest()
{
    journal.clear();
    log.clear();
}

SharedPlatformTest::~SharedPlatformTest() = default;

void SharedPlatformTest::TearDown()
{
    EXPECT_THAT(platform.leftovers(), testing::IsEmpty());
}

} // namespace tamotest
