// SPDX-License-Identifier: Apache-2.0
#include "Answer.h"

#include <QString>

#include <stdexcept>
#include <string>

namespace tamobench {

namespace {

const char pps[] = "@control\n"
                   "msg::getItemDetails\n"
                   "id::17\n"
                   "res::ok\n"
                   "dat:json:{\"item\":{\"sku\":\"level-pack-3\",\"name\":\"Caf\303\251 levels\","
                   "\"price\":2.99,\"owned\":false},"
                   "\"tags\":[\"puzzle\",\"family\",12],"
                   "\"currency\":\"EUR\",\"quantity\":1,\"trial\":true,"
                   "\"expires\":1767225600}\n";

/** A part of the text, found before anything is timed. */
class Piece
{
public:
    explicit Piece(const char* bytes)
        : m_length(static_cast<int>(qstrlen(bytes))), m_begin(pps + QByteArray(pps).indexOf(bytes))
    {
        if (m_begin < pps)
            throw std::logic_error(std::string("the answer does not hold ") + bytes);
    }

    QString string() const { return QString::fromUtf8(m_begin, m_length); }

private:
    int m_length;
    const char* m_begin;
};

struct Pieces
{
    Piece control{"@control"}, msg{"msg"}, getItemDetails{"getItemDetails"}, id{"id"},
        seventeen{"17"}, res{"res"}, ok{"ok"}, dat{"dat"}, item{"item"}, sku{"sku"},
        levelPack{"level-pack-3"}, name{"name"}, cafe{"Caf\303\251 levels"}, price{"price"},
        owned{"owned"}, tags{"tags"}, puzzle{"puzzle"}, family{"family"}, currency{"currency"},
        euro{"EUR"}, quantity{"quantity"}, trial{"trial"}, expires{"expires"};
};

} // namespace

QByteArray Answer::text()
{
    return pps;
}

QByteArray Answer::json()
{
    QByteArray object = pps;
    object.replace("@control\n", "{\"@control\":{");
    object.replace("msg::getItemDetails\n", "\"msg\":\"getItemDetails\",");
    object.replace("id::17\n", "\"id\":\"17\",");
    object.replace("res::ok\n", "\"res\":\"ok\",");
    object.replace("dat:json:", "\"dat\":");
    object.replace("\n", "}}");
    return object;
}

QVariantMap Answer::byHand()
{
    static const Pieces piece;
    QVariantMap item;
    item.insert(piece.sku.string(), piece.levelPack.string());
    item.insert(piece.name.string(), piece.cafe.string());
    item.insert(piece.price.string(), 2.99);
    item.insert(piece.owned.string(), false);

    QVariantList tags;
    tags.reserve(3);
    tags.append(piece.puzzle.string());
    tags.append(piece.family.string());
    tags.append(12.0);

    QVariantMap dat;
    dat.insert(piece.item.string(), item);
    dat.insert(piece.tags.string(), tags);
    dat.insert(piece.currency.string(), piece.euro.string());
    dat.insert(piece.quantity.string(), 1.0);
    dat.insert(piece.trial.string(), true);
    dat.insert(piece.expires.string(), 1767225600.0);

    QVariantMap control;
    control.insert(piece.msg.string(), piece.getItemDetails.string());
    control.insert(piece.id.string(), piece.seventeen.string());
    control.insert(piece.res.string(), piece.ok.string());
    control.insert(piece.dat.string(), dat);

    QVariantMap message;
    message.insert(piece.control.string(), control);
    return message;
}

QVariantMap Answer::attributes()
{
    return byHand().value(QStringLiteral("@control")).toMap();
}

} // namespace tamobench
