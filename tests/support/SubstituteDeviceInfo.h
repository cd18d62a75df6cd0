// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_TESTS_SUBSTITUTEDEVICEINFO_H
#define TAMO_TESTS_SUBSTITUTEDEVICEINFO_H

#include "CallJournal.h"

#include <tamomock/ZelDeviceInfo.h>

#include <atomic>
#include <optional>

namespace tamotest {

/**
 * The device information: a record for each call of getData(), each its own memory. What identifies
 * the device fails with ENOTSUP.
 *
 * Every call goes into the journal as "deviceInfo.<operation>", and fails when the journal says so.
 */
class SubstituteDeviceInfo : public tamomock::ZelDeviceInfo
{
public:
    /** @param journal outlives this */
    explicit SubstituteDeviceInfo(CallJournal& journal) : m_journal(journal) {}

    /** The version in records; none: NULL. Not to be changed while records are asked for. */
    std::optional<std::string> osVersion = "1.2.0.34";

    /** How many records there are that have not been freed. */
    int recordCount() const { return m_recordCount; }

    int getData(deviceinfo_data_t** data) override;
    void freeData(deviceinfo_data_t** data) override;
    int getIdentifyingData(deviceinfo_identifying_data_t** data) override;
    void freeIdentifyingData(deviceinfo_identifying_data_t** data) override;

private:
    CallJournal& m_journal;
    std::atomic<int> m_recordCount{0};
};

} // namespace tamotest

#endif
