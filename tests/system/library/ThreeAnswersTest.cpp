// SPDX-License-Identifier: Apache-2.0
// The example examples/three-answers, whole, with services of the test's own.
#include "MailboxService.h"
#include "PrivatePps.h"

#include <QProcess>

#include <gtest/gtest.h>

#include <optional>
#include <sys/stat.h>

namespace {

constexpr int limit = 30'000; // milliseconds

class ThreeAnswersTest : public testing::Test
{
protected:
    ThreeAnswersTest()
    {
        for (const char* directory :
             {"/pps/services", "/pps/services/led", "/pps/services/notification"})
            mkdir(directory, 0777);
        tamotest::publish("services/led/status", "red::off\ngreen::off\nblue::off\n");
        m_led.emplace("services/led/control");
        m_notification.emplace("services/notification/control");
        m_application.start(TAMO_TEST_THREE_ANSWERS, QStringList());
    }
    ~ThreeAnswersTest() override
    {
        if (m_application.state() != QProcess::NotRunning) {
            m_application.kill();
            m_application.waitForFinished(limit);
        }
    }

    tamotest::PpsFilesystem m_filesystem;
    std::optional<tamotest::MailboxService> m_led;
    std::optional<tamotest::MailboxService> m_notification;
    QProcess m_application;
};

TEST_F(ThreeAnswersTest, AnswerThatIsPickedComesBackAndUnknownOnesEndNothing)
{
    const QVariantMap flash = m_led->next();
    EXPECT_EQ(flash.value("msg"), "requestLED");
    EXPECT_EQ(flash.value("dat").toMap().value("color"), "green");
    const QVariantMap posted = m_notification->next().value("dat").toMap();
    const QVariantList choices = posted.value("promptChoices").toList();
    ASSERT_EQ(choices.size(), 3);

    const QVariant id = posted.value("id");
    m_notification->answer({{"msg", "Nonsense"}, {"dat", QVariantMap{{"id", id}}}});
    m_notification->answer(
        {{"msg", "Acknowledge"},
         {"dat", QVariantMap{{"id", id}, {"promptResponse", 1}, {"promptChoice", choices.at(1)}}}});
    ASSERT_TRUE(m_application.waitForFinished(limit));
    EXPECT_EQ(m_application.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(m_application.exitCode(), 0);
    EXPECT_EQ(m_application.readAllStandardOutput(), "the answer is: tonight\n");
    EXPECT_EQ(m_application.readAllStandardError(), "three-answers: Unknown response received\n");
    EXPECT_EQ(m_led->next().value("msg"), "cancelLED");
    EXPECT_EQ(m_notification->next().value("msg"), "Cancel");
}

} // namespace
