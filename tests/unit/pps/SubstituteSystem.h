// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_TESTS_SUBSTITUTESYSTEM_H
#define TAMO_TESTS_SUBSTITUTESYSTEM_H

#include "pps/PpsObjectPrivate.h"

#include <tamo/PpsObject.h>

#include <gmock/gmock.h>

#include <cstring>
#include <memory>

namespace tamotest {

/** An operating system for one PpsObject. A call that nobody expects answers 0. */
class SubstituteSystem : public tamo::PpsObjectPrivate
{
public:
    using PpsObjectPrivate::PpsObjectPrivate;

    MOCK_METHOD(void, createNotifier, (int, QSocketNotifier::Type), (override));
    MOCK_METHOD(void, deleteNotifier, (), (override));
    MOCK_METHOD(void, setNotifierEnabled, (bool), (override));
    MOCK_METHOD(bool, connect, (const char*, QObject*, const char*), (override));
    MOCK_METHOD(int, open, (const char*, int, mode_t), (override));
    MOCK_METHOD(int, close, (int), (override));
    MOCK_METHOD(ssize_t, read, (int, void*, size_t), (override));
    MOCK_METHOD(ssize_t, write, (int, const void*, size_t), (override));
    MOCK_METHOD(int, fcntl, (int, int), (override));
    MOCK_METHOD(int, fcntl, (int, int, int), (override));
    MOCK_METHOD(int, unlink, (const char*), (override));

    int lastError() const override { return systemError; }

    /** What `errno` is in this system. */
    int systemError = 0;
};

/** A PpsObject over a SubstituteSystem. */
class SubstitutedObject : public tamo::PpsObject
{
public:
    explicit SubstitutedObject(const QString& path = QStringLiteral("/pps/object"))
        : SubstitutedObject(new testing::NiceMock<SubstituteSystem>(path))
    {
    }

    /** Makes open() answer with a descriptor, and opens the object. */
    void openAs(int descriptor)
    {
        ON_CALL(system, open).WillByDefault(testing::Return(descriptor));
        open(Publish | Subscribe);
    }

    SubstituteSystem& system;

private:
    explicit SubstitutedObject(SubstituteSystem* substitute)
        : PpsObject(std::unique_ptr<tamo::PpsObjectPrivate>(substitute)), system(*substitute)
    {
    }
};

/** Fails a call of a SubstituteSystem: sets its `errno` and answers -1. */
ACTION_P2(Fail, system, errorNumber)
{
    system->systemError = errorNumber;
    return -1;
}

/** Answers a read with bytes; with `EMSGSIZE` where they do not fit into the buffer. */
ACTION_P2(Message, system, bytes)
{
    const size_t length = static_cast<size_t>(bytes.size());
    if (length > arg2) {
        system->systemError = EMSGSIZE;
        return -1;
    }
    std::memcpy(arg1, bytes.constData(), length);
    return static_cast<ssize_t>(length);
}

} // namespace tamotest

#endif
