// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_PPS_PPSOBJECTPRIVATE_H
#define TAMO_PPS_PPSOBJECTPRIVATE_H

#include <QtCore/QSocketNotifier>
#include <QtCore/QString>

#include <sys/types.h>

namespace tamo {

/**
 * What a PpsObject knows, and the operations of the operating system that it uses. Tests substitute
 * them; PpsObjectPrivateImpl is the operating system itself.
 */
class PpsObjectPrivate
{
public:
    explicit PpsObjectPrivate(const QString& objectPath) : path(objectPath) {}
    virtual ~PpsObjectPrivate() = default;
    PpsObjectPrivate(const PpsObjectPrivate&) = delete;
    PpsObjectPrivate& operator=(const PpsObjectPrivate&) = delete;

    /** Makes a notifier for a descriptor, in place of the one that is there. */
    virtual void createNotifier(int fd, QSocketNotifier::Type type) = 0;
    /** Deletes the notifier, if there is one. */
    virtual void deleteNotifier() = 0;
    virtual void setNotifierEnabled(bool enable) = 0;
    /** Connects a signal of the notifier, by name, with the automatic connection type. */
    virtual bool connect(const char* signal, QObject* receiver, const char* member) = 0;

    /** `errno`, as the last of the calls below left it. */
    virtual int lastError() const = 0;
    virtual int open(const char* file, int flags, mode_t mode) = 0;
    virtual int close(int fd) = 0;
    virtual ssize_t read(int fd, void* buffer, size_t size) = 0;
    virtual ssize_t write(int fd, const void* buffer, size_t size) = 0;
    virtual int fcntl(int fd, int command) = 0;
    virtual int fcntl(int fd, int command, int argument) = 0;
    virtual int unlink(const char* file) = 0;

    const QString path;
    int error = 0;
    int descriptor = -1;
    bool readyReadEnabled = true;
    /** Owned; null while the object is closed. Without a parent until the object is moved to
     * another thread, the object's child from then on. */
    QSocketNotifier* notifier = nullptr;
};

} // namespace tamo

#endif
