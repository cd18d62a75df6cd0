// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_PPS_PPSOBJECTPRIVATEIMPL_H
#define TAMO_PPS_PPSOBJECTPRIVATEIMPL_H

#include "PpsObjectPrivate.h"

namespace tamo {

/** The operations of PpsObjectPrivate as system calls and a real QSocketNotifier. */
class PpsObjectPrivateImpl final : public PpsObjectPrivate
{
public:
    using PpsObjectPrivate::PpsObjectPrivate;
    ~PpsObjectPrivateImpl() override;

    void createNotifier(int fd, QSocketNotifier::Type type) override;
    void deleteNotifier() override;
    void setNotifierEnabled(bool enable) override;
    bool connect(const char* signal, QObject* receiver, const char* member) override;
    int lastError() const override;
    int open(const char* file, int flags, mode_t mode) override;
    int close(int fd) override;
    ssize_t read(int fd, void* buffer, size_t size) override;
    ssize_t write(int fd, const void* buffer, size_t size) override;
    int fcntl(int fd, int command) override;
    int fcntl(int fd, int command, int argument) override;
    int unlink(const char* file) override;

private:
    void restNotifierOnDeadDescriptor();

    /** Whether the notifier has fired and no read has got anything since. */
    bool m_fruitless = false;
};

} // namespace tamo

#endif
