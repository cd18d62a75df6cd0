// SPDX-License-Identifier: Apache-2.0
// Which object of a seam the process uses: the same for both seams.
#include <tamo/Exception.h>
#include <tamomock/ScreenApi.h>
#include <tamomock/ScreenApiImpl.h>
#include <tamomock/ZelApi.h>

#include <gmock/gmock.h>

#include <atomic>
#include <cstdlib>
#include <iostream>
#include <memory>
#include <sstream>
#include <string>
#include <thread>
#include <type_traits>
#include <typeinfo>
#include <vector>

namespace {

using tamomock::ScreenApi;
using tamomock::ScreenApiImpl;
using tamomock::ZelApi;

/** A substitute for either seam that says when it is deleted. */
struct ZelSubstitute : ZelApi
{
    ZelSubstitute() : ZelApi({}) {}
    ~ZelSubstitute() override { *deleted = true; }
    std::shared_ptr<bool> deleted = std::make_shared<bool>(false);
};

struct ScreenSubstitute : ScreenApiImpl
{
    ~ScreenSubstitute() override { *deleted = true; }
    std::shared_ptr<bool> deleted = std::make_shared<bool>(false);
};

template<class Seam>
struct Names;

template<>
struct Names<ZelApi>
{
    using Substitute = ZelSubstitute;
    using Other = ScreenApi;
    using OtherSubstitute = ScreenSubstitute;
    static constexpr char refusal[] = "ZelApi::setInstance: instance already exists\n";
    static bool isDefault(ZelApi* api) { return api->core() && api->virtualKeyboard(); }
};

template<>
struct Names<ScreenApi>
{
    using Substitute = ScreenSubstitute;
    using Other = ZelApi;
    using OtherSubstitute = ZelSubstitute;
    static constexpr char refusal[] = "ScreenApi::setInstance: instance already exists\n";
    static bool isDefault(ScreenApi* api) { return typeid(*api) == typeid(ScreenApiImpl); }
};

/** Keeps what is written to std::cout, and counts how often it is flushed. */
class StandardOutput : private std::stringbuf
{
public:
    StandardOutput() : m_previous(std::cout.rdbuf(this)) {}
    ~StandardOutput() override { std::cout.rdbuf(m_previous); }
    StandardOutput(const StandardOutput&) = delete;
    StandardOutput& operator=(const StandardOutput&) = delete;

    std::string text() const { return str(); }
    std::string flushed() const { return m_flushed; }

private:
    int sync() override
    {
        m_flushed = str();
        return 0;
    }

    std::streambuf* const m_previous;
    std::string m_flushed;
};

template<class Seam>
class SeamInstance : public testing::Test
{
protected:
    using Substitute = typename Names<Seam>::Substitute;

    /** Nothing is current after a test; a default that one has made is deleted. */
    ~SeamInstance() override
    {
        for (Seam* made : m_defaults) {
            Seam::clearInstance(made);
            delete made;
        }
        Substitute probe;
        EXPECT_NO_THROW(Seam::setInstance(&probe)) << "the test left an object behind";
        Seam::clearInstance(&probe);
    }

    /** instance() where it makes a default. */
    Seam* makeDefault()
    {
        m_defaults.push_back(Seam::instance());
        return m_defaults.back();
    }

    Substitute substitute;

private:
    std::vector<Seam*> m_defaults;
};

using Seams = testing::Types<ZelApi, ScreenApi>;
TYPED_TEST_SUITE(SeamInstance, Seams, );

TYPED_TEST(SeamInstance, OneThatIsSetBeforeTheFirstUseIsUsed)
{
    TypeParam::setInstance(&this->substitute);
    EXPECT_EQ(TypeParam::instance(), &this->substitute);
    EXPECT_EQ(TypeParam::instance(), &this->substitute);
    TypeParam::clearInstance(&this->substitute);
}

TYPED_TEST(SeamInstance, TheFirstUseMakesADefaultThatStays)
{
    TypeParam* const made = this->makeDefault();
    ASSERT_NE(made, nullptr);
    EXPECT_TRUE(Names<TypeParam>::isDefault(made));
    EXPECT_EQ(TypeParam::instance(), made);
}

TYPED_TEST(SeamInstance, SettingOneOverTheDefaultIsRefused)
{
    TypeParam* const made = this->makeDefault();
    const StandardOutput output;
    EXPECT_THROW(TypeParam::setInstance(&this->substitute), tamo::Exception);
    EXPECT_EQ(output.text(), Names<TypeParam>::refusal);
    EXPECT_EQ(output.flushed(), Names<TypeParam>::refusal);
    EXPECT_EQ(TypeParam::instance(), made);
}

TYPED_TEST(SeamInstance, SettingOneOverAnotherIsRefusedAndTheSameOneToo)
{
    TypeParam::setInstance(&this->substitute);
    typename TestFixture::Substitute another;
    const StandardOutput output;
    const std::string line = Names<TypeParam>::refusal;
    EXPECT_THROW(TypeParam::setInstance(&another), tamo::Exception);
    EXPECT_EQ(output.text(), line);
    EXPECT_THROW(TypeParam::setInstance(&this->substitute), tamo::Exception);
    EXPECT_EQ(output.text(), line + line);
    EXPECT_EQ(TypeParam::instance(), &this->substitute);
    TypeParam::clearInstance(&this->substitute);
}

TYPED_TEST(SeamInstance, AcceptedCallsWriteNothing)
{
    const StandardOutput output;
    TypeParam::setInstance(&this->substitute);
    TypeParam::instance();
    TypeParam::clearInstance(&this->substitute);
    TypeParam::clearInstance(&this->substitute);
    EXPECT_EQ(output.text(), "");
}

TYPED_TEST(SeamInstance, ClearingAnotherOneChangesNothing)
{
    TypeParam::setInstance(&this->substitute);
    typename TestFixture::Substitute another;
    TypeParam::clearInstance(&another);
    TypeParam::clearInstance(nullptr);
    EXPECT_EQ(TypeParam::instance(), &this->substitute);
    TypeParam::clearInstance(&this->substitute);
}

TYPED_TEST(SeamInstance, AfterClearingTheNextUseMakesADefault)
{
    TypeParam::setInstance(&this->substitute);
    TypeParam::clearInstance(&this->substitute);
    TypeParam* const made = this->makeDefault();
    EXPECT_NE(made, &this->substitute);
    EXPECT_TRUE(Names<TypeParam>::isDefault(made));
}

TYPED_TEST(SeamInstance, AfterClearingTheDefaultTheNextUseMakesAFreshOne)
{
    TypeParam* const first = this->makeDefault();
    TypeParam::clearInstance(first);
    EXPECT_NE(this->makeDefault(), first);
}

TYPED_TEST(SeamInstance, AfterClearingAnotherOneCanBeSet)
{
    TypeParam::setInstance(&this->substitute);
    TypeParam::clearInstance(&this->substitute);
    typename TestFixture::Substitute another;
    TypeParam::setInstance(&another);
    EXPECT_EQ(TypeParam::instance(), &another);
    TypeParam::clearInstance(&another);
}

TYPED_TEST(SeamInstance, OneThatIsSetStaysItsOwners)
{
    auto owned = std::make_unique<typename TestFixture::Substitute>();
    const std::shared_ptr<bool> deleted = owned->deleted;
    TypeParam::setInstance(owned.get());
    TypeParam::clearInstance(owned.get());
    EXPECT_FALSE(*deleted);
    owned.reset();
    EXPECT_TRUE(*deleted);
}

TYPED_TEST(SeamInstance, SettingOneLeavesTheOtherSeamAlone)
{
    using Other = typename Names<TypeParam>::Other;
    typename Names<TypeParam>::OtherSubstitute other;
    TypeParam::setInstance(&this->substitute);
    EXPECT_NO_THROW(Other::setInstance(&other));
    TypeParam::clearInstance(&this->substitute);
    EXPECT_EQ(Other::instance(), &other);
    Other::clearInstance(&other);
}

TYPED_TEST(SeamInstance, IsDeletedThroughItsTypeAndNotCopied)
{
    EXPECT_TRUE(std::has_virtual_destructor_v<TypeParam>);
    EXPECT_FALSE(std::is_copy_constructible_v<TypeParam>);
    EXPECT_FALSE(std::is_copy_assignable_v<TypeParam>);
}

/** Runs a function in several threads at once. */
template<class Function>
void runInThreads(int count, const Function& function)
{
    std::atomic<int> waiting{count};
    std::vector<std::thread> threads;
    for (int number = 0; number < count; ++number) {
        threads.emplace_back([&, number] {
            --waiting;
            while (waiting > 0)
                std::this_thread::yield();
            function(static_cast<std::size_t>(number));
        });
    }
    for (std::thread& thread : threads)
        thread.join();
}

TYPED_TEST(SeamInstance, ThreadsThatUseItFirstGetOneDefault)
{
    for (int repetition = 0; repetition < 100; ++repetition) {
        std::vector<TypeParam*> seen(4);
        runInThreads(4, [&](std::size_t number) { seen[number] = TypeParam::instance(); });
        EXPECT_THAT(seen, testing::Each(seen.front()));
        TypeParam::clearInstance(seen.front());
        delete seen.front();
    }
}

TYPED_TEST(SeamInstance, OfThreadsThatSetOneASingleOneSucceeds)
{
    const StandardOutput output;
    for (int repetition = 0; repetition < 100; ++repetition) {
        std::vector<typename TestFixture::Substitute> substitutes(4);
        std::atomic<int> refused{0};
        std::atomic<TypeParam*> accepted{nullptr};
        runInThreads(4, [&](std::size_t number) {
            try {
                TypeParam::setInstance(&substitutes[number]);
                accepted = &substitutes[number];
            } catch (const tamo::Exception&) {
                ++refused;
            }
        });
        EXPECT_EQ(refused, 3);
        EXPECT_EQ(TypeParam::instance(), accepted);
        TypeParam::clearInstance(accepted);
    }
    std::string lines;
    for (int line = 0; line < 300; ++line)
        lines += Names<TypeParam>::refusal;
    EXPECT_EQ(output.text(), lines);
}

TYPED_TEST(SeamInstance, ThreadsThatSetAndClearTakeTurns)
{
    std::atomic<int> successes{0};
    const StandardOutput output;
    runInThreads(4, [&](std::size_t) {
        typename TestFixture::Substitute own;
        for (int repetition = 0; repetition < 500; ++repetition) {
            try {
                TypeParam::setInstance(&own);
            } catch (const tamo::Exception&) {
                continue;
            }
            ++successes;
            if (TypeParam::instance() != &own)
                ADD_FAILURE() << "another thread's object took its place";
            TypeParam::clearInstance(&own);
        }
    });
    EXPECT_GT(successes, 0);
}

TYPED_TEST(SeamInstance, TheProcessMayEndWhileThreadsUseIt)
{
    EXPECT_EXIT(
        {
            TypeParam::setInstance(&this->substitute);
            std::atomic<int> running{0};
            for (int number = 0; number < 2; ++number) {
                std::thread([&] {
                    ++running;
                    for (;;)
                        if (TypeParam::instance() != &this->substitute)
                            std::abort();
                }).detach();
            }
            while (running < 2)
                std::this_thread::yield();
            std::exit(0);
        },
        testing::ExitedWithCode(0), "");
}

} // namespace
