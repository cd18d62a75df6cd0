// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_PPSOBJECT_H
#define TAMO_PPSOBJECT_H

#include <tamo/export.h>

#include <QtCore/QByteArray>
#include <QtCore/QFlags>
#include <QtCore/QObject>
#include <QtCore/QString>

#include <memory>

namespace tamo {

class PpsObjectPrivate;

/**
 * One object of the PPS filesystem, as a file: reads and writes whole messages as bytes, and tells
 * when there is something to read. PpsAccessor makes maps of the bytes.
 *
 * Nothing here throws. An operation that fails returns false (write(): -1) and leaves the reason in
 * error(), which every operation sets to 0 first, except the constructor, isOpen(),
 * isReadyReadEnabled(), setReadyReadEnabled() and error() itself. Reasons that do not come from the
 * system are `EBADF` (the object is not open), `EBUSY` (it is open already), `EAGAIN` (there was
 * nothing to read) and `EINVAL` (the path holds a NUL character or half a surrogate pair, which no
 * file name can). A call that a signal interrupts fails with `EINTR`; it is not repeated.
 *
 * An object is used in the thread that it lives in, which needs an event loop for readyRead(). It
 * may be moved to another thread, open or closed.
 *
 * @since 0.1
 */
class TAMO_EXPORT PpsObject : public QObject
{
    Q_OBJECT

public:
    /** How to open an object. With neither Publish nor Subscribe it is opened for reading. */
    enum OpenModeFlag {
        Publish = 1,   /**< for writing */
        Subscribe = 2, /**< for reading */
        Create =
            4, /**< the object must not exist yet, and is created with mode 0666 less the umask */
        Truncate = 8 /**< what is written first replaces everything that was there */
    };
    Q_DECLARE_FLAGS(OpenMode, OpenModeFlag)

    /**
     * Keeps the path; nothing is opened.
     *
     * @param path the absolute path of the object, with options of the filesystem after a question
     *        mark where they are wanted (`/pps/services/dialog/control?wait`)
     */
    explicit PpsObject(const QString& path, QObject* parent = nullptr);

    /** Closes the object if it is open. */
    ~PpsObject() override;

    /**
     * Opens the object, in blocking mode. readyRead() is emitted from now on, unless it was
     * disabled.
     *
     * @return whether it is open now; false also where it was open before, and then it stays so
     */
    bool open(OpenMode mode);

    /** Closes the object. It is closed afterwards, also where the system reports a failure. */
    bool close();

    /** Whether the object is open. */
    bool isOpen() const;

    /**
     * Reads one whole message, however long it is.
     *
     * With nothing new it fails with `EAGAIN`; but in blocking mode, on an object opened with the
     * option `?wait`, it waits for the next message.
     *
     * @param data receives the message; empty after a failure, except that it is left as it was
     *        where the object is not open. A message that does not fit into memory (or, with Qt 5,
     *        into a QByteArray) fails with `ENOMEM` or `EMSGSIZE` and stays to be read.
     */
    bool read(QByteArray& data);

    /**
     * Writes one message.
     *
     * @return how many bytes were written, or -1
     */
    int write(const QByteArray& data);

    /** Removes the object from the filesystem, whether or not it is open here. */
    bool remove();

    /** Sets whether a read() with nothing new may wait, which it only does with `?wait`. */
    bool setBlocking(bool blocking);

    /** Whether the object is in blocking mode; false also on failure. */
    bool isBlocking() const;

    /** Whether readyRead() is emitted while the object is open. True at first. */
    bool isReadyReadEnabled() const;

    /** The error of the last operation, an `errno` value; 0 where it succeeded. */
    int error() const;

public Q_SLOTS:
    /** Sets whether readyRead() is emitted, now and after every later open(). */
    void setReadyReadEnabled(bool enable);

Q_SIGNALS:
    /**
     * The object can be read. Emitted again until it has been read.
     *
     * This is independent of the blocking mode. One emission promises one message: a receiver that
     * reads until nothing is left, on an object opened with `?wait`, sets the non-blocking mode
     * first, or its last read() waits for the next message.
     *
     * Where the filesystem itself has ended, read() in the receiver fails with `ENOTCONN`; after a
     * few emissions there are no more.
     */
    void readyRead();

protected:
    /** For tests: an object over a substitute for the operating system, whose path is in it. */
    explicit PpsObject(std::unique_ptr<PpsObjectPrivate> substitute, QObject* parent = nullptr);

    bool event(QEvent* event) override;

private:
    const std::unique_ptr<PpsObjectPrivate> d;
};

Q_DECLARE_OPERATORS_FOR_FLAGS(PpsObject::OpenMode)

} // namespace tamo

#endif
