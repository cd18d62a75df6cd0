// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_PPSACCESSOR_H
#define TAMO_PPSACCESSOR_H

#include <tamo/export.h>

#include <QtCore/QByteArray>
#include <QtCore/QObject>
#include <QtCore/QString>
#include <QtCore/QVariantMap>

#include <memory>

namespace tamo {

class PpsAccessorPrivate;
class PpsObject;

/**
 * A PPS object as maps: what is published arrives decoded with received(), and send() publishes a
 * map.
 *
 * A PPS map is a QVariantMap from attribute names to values:
 *
 * | value              | in PPS text                                                       |
 * |--------------------|-------------------------------------------------------------------|
 * | invalid QVariant   | null; decoded also from what has been deleted                     |
 * | `bool`             | boolean                                                           |
 * | `int`              | number; every number is decoded as `double`                       |
 * | `double`           | number; not NaN, not infinite                                     |
 * | QString            | string; null and empty are the same                               |
 * | QVariantMap        | object                                                            |
 * | QVariantList       | array                                                             |
 *
 * A decoded message holds each object's attributes in a map of their own, under the at sign and the
 * object's name: `{"@battery": {"StateOfCharge": 57.0}}`. An encoded map holds attributes alone,
 * without that level.
 *
 * An accessor is used in the thread that it lives in, which must be that of its PpsObject. It may
 * be moved to another thread: an object of its own comes along, the caller's is moved by the caller
 * before the event loop has its next turn.
 *
 * @since 0.1
 */
class TAMO_EXPORT PpsAccessor : public QObject
{
    Q_OBJECT

public:
    /**
     * An accessor with a PpsObject of its own, opened to read and to write.
     *
     * @throws tamo::Exception where the object cannot be opened
     */
    explicit PpsAccessor(const QString& path, QObject* parent = nullptr);

    /**
     * An accessor over the caller's object, which stays the caller's, to be opened and closed by
     * the caller. Where the object is deleted first, read() throws and send() returns false.
     */
    explicit PpsAccessor(PpsObject* object, QObject* parent = nullptr);

    ~PpsAccessor() override;

    /**
     * Reads one message. It waits for one where PpsObject::read() waits.
     *
     * @throws tamo::Exception where there is nothing to read, and as decode()
     */
    QVariantMap read();

    /**
     * The PPS text of a map's attributes, one line each, in the order of their names. May be called
     * from any thread.
     *
     * @throws tamo::Exception for what the text cannot carry: a value of any other type than those
     *         above (`uint`, `qlonglong`, QChar, QStringList, ... are not converted); NaN and the
     *         infinities; a NUL character or half a surrogate pair in a name or a string; at the
     * top level a name that is empty, begins with `@` or `-`, or holds a colon or a line end; more
     * than 1,024 levels
     */
    static QByteArray encode(const QVariantMap& ppsData);

    /**
     * The map that PPS text holds; where a name is repeated, the later one. May be called from any
     * thread.
     *
     * @throws tamo::Exception for text that is malformed in any place, or nested more than 1,024
     *         levels deep
     */
    static QVariantMap decode(const QByteArray& rawData);

public Q_SLOTS:
    /**
     * Writes a map to the object.
     *
     * @return whether all of it was written; PpsObject::error() has the reason where it was not
     * @throws tamo::Exception as encode(); nothing is written then
     */
    bool send(const QVariantMap& ppsData);

Q_SIGNALS:
    /**
     * The object was published, and holds this. The receiver may delete the accessor and the
     * PpsObject.
     */
    void received(const QVariantMap& ppsData);

    /** The object was published, and decode() throws for these bytes. As received() otherwise. */
    void unparsableDataReceived(const QByteArray& rawData);

private:
    const std::unique_ptr<PpsAccessorPrivate> d;
};

} // namespace tamo

#endif
