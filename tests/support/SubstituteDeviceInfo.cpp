// SPDX-License-Identifier: Apache-2.0
#include "SubstituteDeviceInfo.h"

namespace tamotest {

namespace {

struct Record : deviceinfo_data_t
{
    std::optional<std::string> osVersion;
};

} // namespace

int SubstituteDeviceInfo::getData(deviceinfo_data_t** data)
{
    if (!m_journal.enter("deviceInfo.getData"))
        return -1;
    auto* const record = new Record;
    record->osVersion = osVersion;
    record->os_version = record->osVersion ? record->osVersion->c_str() : nullptr;
    record->device_name = record->model_name = record->model_number = "";
    ++m_recordCount;
    *data = record;
    return 0;
}

void SubstituteDeviceInfo::freeData(deviceinfo_data_t** data)
{
    m_journal.enter("deviceInfo.freeData");
    delete static_cast<Record*>(*data);
    *data = nullptr;
    --m_recordCount;
}

int SubstituteDeviceInfo::getIdentifyingData(deviceinfo_identifying_data_t**)
{
    m_journal.enter("deviceInfo.getIdentifyingData");
    errno = ENOTSUP;
    return -1;
}

void SubstituteDeviceInfo::freeIdentifyingData(deviceinfo_identifying_data_t**)
{
    m_journal.enter("deviceInfo.freeIdentifyingData");
}

} // namespace tamotest
