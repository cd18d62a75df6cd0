// SPDX-License-Identifier: Apache-2.0
#include "pps/Utf8Buffer.h"

#include <gtest/gtest.h>

using tamo::Utf8Buffer;

namespace {

TEST(Utf8Buffer, ConvertsEveryCharacterAsQtDoes)
{
    Utf8Buffer buffer;
    for (uint character = 1; character <= 0x10ffff; ++character) {
        const char32_t unit = character;
        const QString text = QString::fromUcs4(&unit, 1);
        const char* const utf8 = buffer.convert(text);
        if (character >= 0xd800 && character < 0xe000)
            ASSERT_EQ(utf8, nullptr) << character;
        else
            ASSERT_EQ(text.toUtf8(), QByteArray(utf8)) << character;
    }
}

TEST(Utf8Buffer, FindsWhatIsNoTextAtEveryPlace)
{
    Utf8Buffer buffer;
    for (int length = 1; length < 20; ++length) {
        for (int place = 0; place < length; ++place) {
            for (const char16_t unit : {u'\0', u'\xd800', u'\xdfff'}) {
                QString text(length, 'x');
                text[place] = QChar(unit);
                EXPECT_EQ(buffer.convert(text), nullptr);
            }
        }
    }
}

TEST(Utf8Buffer, ConvertsTextsOfEveryLength)
{
    Utf8Buffer buffer;
    for (int length = 0; length < 3000; ++length) {
        const QString text = QString(length, 'x') + QChar(0xe9) + QString(length % 7, 'y');
        EXPECT_EQ(text.toUtf8(), QByteArray(buffer.convert(text)));
    }
}

TEST(Utf8Buffer, ConvertsNullAndEmptyToEmpty)
{
    Utf8Buffer buffer;
    EXPECT_STREQ(buffer.convert(QString()), "");
    EXPECT_STREQ(buffer.convert(QStringLiteral("")), "");
}

TEST(Utf8Buffer, HoldsTheTextOfTheLastCall)
{
    Utf8Buffer buffer;
    EXPECT_EQ(QByteArray(buffer.convert(QString(5000, 'a'))), QByteArray(5000, 'a'));
    EXPECT_STREQ(buffer.convert(QStringLiteral("b")), "b");
    EXPECT_EQ(QByteArray(buffer.convert(QString(400, 'c'))), QByteArray(400, 'c'));
}

} // namespace
