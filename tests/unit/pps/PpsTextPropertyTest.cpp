// SPDX-License-Identifier: Apache-2.0
// For generated maps: what PpsAccessor::encode() accepts, decode() brings back equal; all else
// throws.
#include <tamo/Exception.h>
#include <tamo/PpsAccessor.h>

#include <QChar>
#include <QStringList>

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <random>
#include <vector>

using tamo::PpsAccessor;

namespace {

// What strings are put together from: every kind of text that has a way of its own to go wrong.
const std::vector<QString>& pieces()
{
    static const std::vector<QString> table = {
        QStringLiteral("a"),
        QStringLiteral("plain text"),
        QStringLiteral("StateOfCharge"),
        QStringLiteral("\n"),
        QStringLiteral("\r"),
        QStringLiteral("\r\n"),
        QStringLiteral("\\"),
        QStringLiteral("\\n"),
        QStringLiteral("\""),
        QStringLiteral("\t"),
        QStringLiteral(":"),
        QStringLiteral("::"),
        QStringLiteral("@"),
        QStringLiteral("-"),
        QStringLiteral("n:1"),
        QStringLiteral("json:{"),
        QStringLiteral("\\u0000"),
        QStringLiteral("/"),
        QStringLiteral(" "),
        QString(QChar(0x01)),
        QString(QChar(0x1b)),
        QString(QChar(0x7f)),
        QString(QChar(0x85)),
        QString(QChar(0xe9)),
        QStringLiteral("e") + QChar(0x0301),
        QString(QChar(0x7ff)),
        QString(QChar(0x800)),
        QString(QChar(0x2028)),
        QString(QChar(0xd7ff)),
        QString(QChar(0xe000)),
        QString(QChar(0xfdd0)),
        QString(QChar(0xfeff)),
        QString(QChar(0xfffd)),
        QString(QChar(0xfffe)),
        QString(QChar(0xffff)),
        QString::fromUtf8("\xf0\x9f\x93\xb1"),
        QString::fromUtf8("\xf0\x9f\x91\xa9\xe2\x80\x8d\xf0\x9f\x9a\x80"),
        QString::fromUtf8("\xf0\x90\x80\x80"),
        QString::fromUtf8("\xf4\x8f\xbf\xbf"),
        QString::fromUtf8("\xd7\xa9\xd7\x9c\xd7\x95\xd7\x9d"),
    };
    return table;
}

const std::vector<QString>& piecesThatAreNoText()
{
    static const std::vector<QString> table = {QString(QChar(0)), QString(QChar(0xd800)),
                                               QString(QChar(0xdbff)), QString(QChar(0xdc00)),
                                               QString(QChar(0xdfff))};
    return table;
}

const std::vector<double>& oddNumbers()
{
    using Limits = std::numeric_limits<double>;
    static const std::vector<double> table = {0.0,
                                              -0.0,
                                              1.0,
                                              -1.0,
                                              0.1,
                                              1.0 / 3,
                                              1e21,
                                              1e-7,
                                              123456789012345678.0,
                                              Limits::max(),
                                              Limits::lowest(),
                                              Limits::min(),
                                              Limits::denorm_min(),
                                              Limits::epsilon(),
                                              9007199254740993.0,
                                              4.35,
                                              2.2250738585072011e-308};
    return table;
}

/** Makes maps, of which `poison` in a thousand values and names are of kinds that are refused. */
class Generator
{
public:
    Generator(unsigned seed, unsigned poison) : m_random(seed), m_poison(poison) {}

    QVariantMap map(int depth)
    {
        QVariantMap result;
        for (unsigned left = below(depth > 0 ? 6 : 3); left > 0; --left)
            result.insert(name(), value(depth));
        return result;
    }

private:
    unsigned below(unsigned limit) { return static_cast<unsigned>(m_random() % limit); }
    bool poisoned() { return below(1000) < m_poison; }

    template<typename T>
    const T& oneOf(const std::vector<T>& table)
    {
        return table[below(static_cast<unsigned>(table.size()))];
    }

    QString text()
    {
        QString result;
        for (unsigned left = below(4); left > 0; --left)
            result += oneOf(pieces());
        if (poisoned())
            result.insert(static_cast<int>(below(static_cast<unsigned>(result.size()) + 1)),
                          oneOf(piecesThatAreNoText()));
        return result;
    }

    // Plain names most of the time: with odd ones alone, hardly a map would be accepted whole.
    QString name() { return below(4) != 0 ? QStringLiteral("name%1").arg(below(20)) : text(); }

    double number()
    {
        if (poisoned())
            return below(2) != 0 ? std::numeric_limits<double>::quiet_NaN()
                                 : -std::numeric_limits<double>::infinity();
        if (below(2) != 0)
            return oneOf(oddNumbers());
        for (;;) {
            const std::uint64_t bits = m_random();
            double any = 0;
            std::memcpy(&any, &bits, sizeof any);
            if (std::isfinite(any))
                return any;
        }
    }

    QVariant value(int depth)
    {
        if (poisoned())
            return oneOf<QVariant>({5U, qlonglong(5), qulonglong(5), QChar('c'), QByteArray("b"),
                                    QStringList{"s"}, 1.5F, QVariantHash()});
        switch (below(depth > 0 ? 9 : 6)) {
        case 0:
            return QVariant();
        case 1:
            return below(2) != 0;
        case 2:
            return static_cast<int>(m_random());
        case 3:
            return number();
        case 4:
            return text();
        case 5:
            return below(50) == 0 ? text().repeated(2000) : text();
        case 6:
            return QString();
        case 7:
            return map(depth - 1);
        default:
            return list(depth - 1);
        }
    }

    QVariantList list(int depth)
    {
        QVariantList result;
        for (unsigned left = below(below(50) == 0 ? 500 : 5); left > 0; --left)
            result.append(value(depth));
        return result;
    }

    std::mt19937_64 m_random;
    unsigned m_poison;
};

bool isText(const QString& string)
{
    return !string.contains(QChar(0)) && string.isValidUtf16();
}

bool isCarried(const QVariant& value);

bool isCarried(const QVariantMap& map)
{
    for (auto entry = map.cbegin(); entry != map.cend(); ++entry) {
        if (!isText(entry.key()) || !isCarried(entry.value()))
            return false;
    }
    return true;
}

bool isCarried(const QVariant& value)
{
    switch (value.userType()) {
    case QMetaType::UnknownType:
    case QMetaType::Bool:
    case QMetaType::Int:
        return true;
    case QMetaType::Double:
        return std::isfinite(value.toDouble());
    case QMetaType::QString:
        return isText(value.toString());
    case QMetaType::QVariantMap:
        return isCarried(value.toMap());
    case QMetaType::QVariantList:
        for (const QVariant& element : value.toList()) {
            if (!isCarried(element))
                return false;
        }
        return true;
    default:
        return false;
    }
}

bool areAttributeNames(const QStringList& names)
{
    for (const QString& name : names) {
        if (name.isEmpty() || name.startsWith('@') || name.startsWith('-') || name.contains(':') ||
            name.contains('\n') || name.contains('\r'))
            return false;
    }
    return true;
}

/** Equal to the last bit, where an int that was written is the equal double that was read. */
bool cameBack(const QVariant& written, const QVariant& read)
{
    if (written.userType() == QMetaType::Int)
        return read.userType() == QMetaType::Double && read.toDouble() == written.toInt();
    if (written.userType() != read.userType())
        return false;
    switch (written.userType()) {
    case QMetaType::Double:
        return written.toDouble() == read.toDouble() &&
               std::signbit(written.toDouble()) == std::signbit(read.toDouble());
    case QMetaType::QVariantMap: {
        const QVariantMap writtenMap = written.toMap();
        const QVariantMap readMap = read.toMap();
        if (writtenMap.keys() != readMap.keys())
            return false;
        for (auto entry = writtenMap.cbegin(); entry != writtenMap.cend(); ++entry) {
            if (!cameBack(entry.value(), readMap.value(entry.key())))
                return false;
        }
        return true;
    }
    case QMetaType::QVariantList: {
        const QVariantList writtenList = written.toList();
        const QVariantList readList = read.toList();
        if (writtenList.size() != readList.size())
            return false;
        for (int i = 0; i < writtenList.size(); ++i) {
            if (!cameBack(writtenList.at(i), readList.at(i)))
                return false;
        }
        return true;
    }
    default:
        return written == read;
    }
}

struct Counts
{
    int accepted = 0;
    int refused = 0;
};

Counts tryMaps(unsigned firstSeed, unsigned count, unsigned poison)
{
    Counts counts;
    for (unsigned seed = firstSeed; seed < firstSeed + count; ++seed) {
        SCOPED_TRACE(seed);
        const QVariantMap map = Generator(seed, poison).map(4);
        if (areAttributeNames(map.keys()) && isCarried(map)) {
            ++counts.accepted;
            EXPECT_TRUE(cameBack(map, PpsAccessor::decode(PpsAccessor::encode(map))));
        } else {
            ++counts.refused;
            EXPECT_THROW(PpsAccessor::encode(map), tamo::Exception);
        }
        if (testing::Test::HasFailure())
            break;
    }
    return counts;
}

TEST(PpsText, GeneratedMapsComeBackEqual)
{
    const Counts counts = tryMaps(1, 3000, 0);
    EXPECT_GT(counts.accepted, 1000);
}

TEST(PpsText, GeneratedMapsWithWhatCannotBeCarriedThrow)
{
    const Counts counts = tryMaps(100000, 3000, 20);
    EXPECT_GT(counts.accepted, 300);
    EXPECT_GT(counts.refused, 300);
}

TEST(PpsText, HugeValuesComeBackEqual)
{
    QVariantList list;
    for (int i = 0; i < 20000; ++i)
        list.append(i);
    const QVariantMap map = {{"string", QString(100000, QChar(0xffff))},
                             {"list", list},
                             {"name", QVariantMap{{QString(100000, 'n'), true}}}};
    EXPECT_TRUE(cameBack(map, PpsAccessor::decode(PpsAccessor::encode(map))));
}

} // namespace
