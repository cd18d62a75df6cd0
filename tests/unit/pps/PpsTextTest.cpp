// SPDX-License-Identifier: Apache-2.0
// PpsAccessor::encode() and PpsAccessor::decode(), case by case.
#include <tamo/Exception.h>
#include <tamo/PpsAccessor.h>

#include <QDate>
#include <QUrl>

#include <gmock/gmock.h>

#include <limits>

using tamo::PpsAccessor;

namespace {

constexpr int deepest = 1024;

QVariantMap attribute(const QVariant& value)
{
    return {{QStringLiteral("a"), value}};
}

QVariant nestedLists(int levels)
{
    QVariant value = QVariantList();
    for (int i = 1; i < levels; ++i)
        value = QVariantList{value};
    return value;
}

QVariant nestedMaps(int levels)
{
    QVariant value = QVariantMap();
    for (int i = 1; i < levels; ++i)
        value = QVariantMap{{QStringLiteral("m"), value}};
    return value;
}

TEST(Encode, WritesALinePerAttributeInTheOrderOfTheNames)
{
    const QVariantMap map = {
        {"string", QString::fromUtf8("line\nend\r\\ \xc3\xa9\xf0\x9f\x93\xb1")},
        {"Int", -5},
        {"double", 0.5},
        {"true", true},
        {"false", false},
        {"null", QVariant()},
        {"object", QVariantMap{{"z", 1}, {"", "x\"y"}}},
        {"array", QVariantList{1, true, QVariant(), "s", QVariantList(), QVariantMap()}},
    };
    EXPECT_EQ(PpsAccessor::encode(map),
              QByteArray("Int:n:-5\n"
                         "array:json:[1,true,null,\"s\",[],{}]\n"
                         "double:n:0.5\n"
                         "false:b:false\n"
                         "null:json:null\n"
                         "object:json:{\"\":\"x\\\"y\",\"z\":1}\n"
                         "string::line\\nend\\r\\\\ \xc3\xa9\xf0\x9f\x93\xb1\n"
                         "true:b:true\n"));
}

TEST(Encode, WritesNothingForAnEmptyMap)
{
    EXPECT_EQ(PpsAccessor::encode({}), QByteArray());
}

TEST(Encode, TakesANullStringForAnEmptyOne)
{
    EXPECT_EQ(PpsAccessor::encode(attribute(QString())), "a::\n");
}

class RefusedValue : public testing::TestWithParam<QVariant>
{
};

TEST_P(RefusedValue, ThrowsWhereverItStands)
{
    const QVariant& value = GetParam();
    EXPECT_THROW(PpsAccessor::encode(attribute(value)), tamo::Exception);
    EXPECT_THROW(PpsAccessor::encode(attribute(attribute(value))), tamo::Exception);
    EXPECT_THROW(PpsAccessor::encode(attribute(QVariantList{1, value})), tamo::Exception);
}

INSTANTIATE_TEST_SUITE_P(Type, RefusedValue,
                         testing::Values(QVariant(5U), QVariant(qlonglong(5)),
                                         QVariant(qulonglong(5)), QVariant(QChar('c')),
                                         QVariant(1.5F), QVariant::fromValue(short(5)),
                                         QVariant::fromValue('c'), QVariant::fromValue(5L),
                                         QVariant(QByteArray("x")), QVariant(QStringList{"x"}),
                                         QVariant(QVariantHash{{"x", 1}}),
                                         QVariant(QDate(2012, 1, 1)), QVariant(QUrl("x:")),
                                         QVariant::fromValue(nullptr)));
INSTANTIATE_TEST_SUITE_P(Number, RefusedValue,
                         testing::Values(std::numeric_limits<double>::quiet_NaN(),
                                         std::numeric_limits<double>::infinity(),
                                         -std::numeric_limits<double>::infinity()));
INSTANTIATE_TEST_SUITE_P(String, RefusedValue,
                         testing::Values(QString(QChar(0)), QStringLiteral("abcd") + QChar(0),
                                         QString(QChar(0xd800)), QString(QChar(0xdfff)),
                                         QString(QChar(0xd83d)) + "x",
                                         QString(QChar(0xdcf1)) + QChar(0xd83d)));

class RefusedName : public testing::TestWithParam<QString>
{
};

TEST_P(RefusedName, ThrowsAtTheTopLevel)
{
    EXPECT_THROW(PpsAccessor::encode({{GetParam(), 1}}), tamo::Exception);
}

TEST_P(RefusedName, IsCarriedInsideOfAnObject)
{
    const QVariantMap map = attribute(QVariantMap{{GetParam(), 1.0}});
    EXPECT_EQ(PpsAccessor::decode(PpsAccessor::encode(map)), map);
}

INSTANTIATE_TEST_SUITE_P(Encode, RefusedName,
                         testing::Values(QString(), "@a", "-a", "a:b", "a\nb", "a\r"));

TEST(Encode, ThrowsForNamesThatAreNoTextAtEveryLevel)
{
    for (const QString& name :
         {QString(QChar(0)), QString(QChar(0xd800)), "a" + QString(QChar(0))}) {
        EXPECT_THROW(PpsAccessor::encode({{name, 1}}), tamo::Exception);
        EXPECT_THROW(PpsAccessor::encode(attribute(QVariantMap{{name, 1}})), tamo::Exception);
    }
}

TEST(Encode, NestsAsDeepAsDecodeFollows)
{
    for (const QVariant& value : {nestedLists(deepest), nestedMaps(deepest)}) {
        const QVariantMap map = attribute(value);
        EXPECT_EQ(PpsAccessor::decode(PpsAccessor::encode(map)), map);
    }
}

TEST(Encode, ThrowsForDeeperNesting)
{
    EXPECT_THROW(PpsAccessor::encode(attribute(nestedLists(deepest + 1))), tamo::Exception);
    EXPECT_THROW(PpsAccessor::encode(attribute(nestedMaps(deepest + 1))), tamo::Exception);
}

TEST(Decode, HoldsTheAttributesOfAnObjectUnderItsName)
{
    const QVariantMap map = PpsAccessor::decode("@battery\nb:n:57\na::x\n");
    EXPECT_EQ(map, (QVariantMap{{"@battery", QVariantMap{{"a", "x"}, {"b", 57.0}}}}));
}

TEST(Decode, HoldsAttributesWithoutAnObjectAtTheTop)
{
    EXPECT_EQ(PpsAccessor::decode("a:b:true\n@o\nb:b:false"),
              (QVariantMap{{"a", true}, {"@o", QVariantMap{{"b", false}}}}));
}

TEST(Decode, TakesEveryNumberForADouble)
{
    const QVariant number = PpsAccessor::decode(PpsAccessor::encode(attribute(5))).value("a");
    EXPECT_EQ(number.userType(), QMetaType::Double);
    EXPECT_EQ(number.toDouble(), 5.0);
}

TEST(Decode, KeepsOrderAndLengthOfAnArray)
{
    const QVariantList list = {3, "two", QVariant(), 1.5, true, QVariantList{2, 1}};
    const QVariantList expected = {3.0, "two", QVariant(), 1.5, true, QVariantList{2.0, 1.0}};
    EXPECT_EQ(PpsAccessor::decode(PpsAccessor::encode(attribute(list))), attribute(expected));
}

TEST(Decode, KeepsAByteOrderMarkAtTheBeginning)
{
    const QChar mark(0xfeff);
    const QVariantMap map = {{mark + QStringLiteral("a"), mark + QStringLiteral("x")},
                             {QString(3, mark), QString(mark)}};
    EXPECT_EQ(PpsAccessor::decode(PpsAccessor::encode(map)), map);
}

TEST(Decode, KeepsANullUnderItsName)
{
    const QVariantMap map = PpsAccessor::decode("a:json:null\n");
    ASSERT_TRUE(map.contains("a"));
    EXPECT_FALSE(map.value("a").isValid());
}

TEST(Decode, KeepsWhatWasDeletedAsNull)
{
    const QVariantMap object = PpsAccessor::decode("-@battery\n");
    ASSERT_TRUE(object.contains("@battery"));
    EXPECT_FALSE(object.value("@battery").isValid());

    const QVariantMap attributes = PpsAccessor::decode("@o\n-a\n").value("@o").toMap();
    ASSERT_TRUE(attributes.contains("a"));
    EXPECT_FALSE(attributes.value("a").isValid());
}

TEST(Decode, TakesTheLaterOfRepeatedNames)
{
    EXPECT_EQ(PpsAccessor::decode("b:n:1\na:n:1\nb:n:2\n"), (QVariantMap{{"a", 1.0}, {"b", 2.0}}));
    EXPECT_EQ(PpsAccessor::decode("a:json:{\"x\":1,\"x\":2}\n"),
              attribute(QVariantMap{{"x", 2.0}}));
    EXPECT_EQ(PpsAccessor::decode("@o\na:n:1\n@o\nb:n:2\n"),
              (QVariantMap{{"@o", QVariantMap{{"b", 2.0}}}}));
}

TEST(Decode, TakesEmptyTextForAnEmptyMap)
{
    EXPECT_EQ(PpsAccessor::decode(QByteArray()), QVariantMap());
    EXPECT_EQ(PpsAccessor::decode("@o\n"), (QVariantMap{{"@o", QVariantMap()}}));
    EXPECT_EQ(PpsAccessor::decode("a:json:{}\n"), attribute(QVariantMap()));
}

TEST(Decode, LeavesTheCallersBytesAsTheyAre)
{
    static constexpr char text[] = "@o\na::line\\nend\nb:json:[\"\\u00e9\"]\n";
    const QByteArray bytes = QByteArray::fromRawData(text, sizeof text - 1);
    const QByteArray copy(text);
    PpsAccessor::decode(bytes);
    EXPECT_EQ(bytes, copy);
    EXPECT_EQ(bytes.constData(), text);
}

TEST(Decode, ReadsNoFurtherThanTheBytesGo)
{
    const QByteArray text("a:n:12345\n");
    EXPECT_EQ(PpsAccessor::decode(QByteArray::fromRawData(text.constData(), 5)), attribute(1.0));
}

class Malformed : public testing::TestWithParam<QByteArray>
{
};

TEST_P(Malformed, TextThrows)
{
    EXPECT_THROW(PpsAccessor::decode(GetParam()), tamo::Exception);
    EXPECT_THROW(PpsAccessor::decode("@o\nok:n:1\n" + GetParam()), tamo::Exception);
}

INSTANTIATE_TEST_SUITE_P(
    Decode, Malformed,
    testing::Values("a", "a:", "a:n", "a:n:", "a:n:x", "a:n:1e999", "a:n:NaN", "a:n:01", "a:b:yes",
                    "a:b:TRUE", "a:q:1", "a::\\x", "a::end\\", "a::x\ry", ":n:1", "\n", "a::\xff",
                    "a::\xc3", "a::\xed\xa0\x80", "a::\xc0\x80", "\xff::x", "a:json:{",
                    "a:json:[1,]", "a:json:5", "a:json:\"s\"", "a:json:true",
                    "a:json:{\"x\":\"\\u0000\"}", "a:json:{\"x\":\"\\ud800\"}", "a:json:[1] x",
                    QByteArray("a::x\0y", 6), QByteArray("a::x\n\0", 6), QByteArray(1, '\0'),
                    "a:json:" + QByteArray(1 << 20, '['),
                    "a:json:" + QByteArray(deepest + 1, '[') + QByteArray(deepest + 1, ']')));

} // namespace
