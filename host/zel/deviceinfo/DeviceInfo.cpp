// SPDX-License-Identifier: Apache-2.0
#include "common/Call.h"
#include "common/ObjectText.h"

#include <pps/decoder.h>
#include <zel/deviceinfo.h>

#include <cerrno>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <new>
#include <string>

namespace {

constexpr char DataPath[] = "/pps/services/deviceinfo/data";
constexpr char IdentityPath[] = "/pps/services/deviceinfo/identity";

/** An attribute and where its text goes in a record. */
template<class Record>
struct Attribute
{
    const char* name;
    const char* Record::*member;
};

constexpr Attribute<deviceinfo_data_t> DataAttributes[] = {
    {"OsVersion", &deviceinfo_data_t::os_version},
    {"DeviceName", &deviceinfo_data_t::device_name},
    {"ModelName", &deviceinfo_data_t::model_name},
    {"ModelNumber", &deviceinfo_data_t::model_number},
};

constexpr Attribute<deviceinfo_identifying_data_t> IdentityAttributes[] = {
    {"SerialNumber", &deviceinfo_identifying_data_t::serial_number},
    {"HardwareId", &deviceinfo_identifying_data_t::hardware_id},
};

/** Reads what an object tells. 0 or an `errno` value. */
int readText(const char* path, std::string& text)
{
    if (const int error = host::readObject(path, text))
        return error;
    if (text.empty())
        return ENOENT; // it was never published
    return text.find('\0') == std::string::npos ? 0 : EBADMSG;
}

/**
 * Makes a record of an object's text: one piece of memory, with the texts behind the record.
 *
 * @return 0 or an `errno` value
 */
template<class Record, std::size_t Count>
int makeRecord(pps_decoder_t& decoder, const Attribute<Record> (&attributes)[Count],
               Record*& record)
{
    if (pps_decoder_length(&decoder) != 1 || pps_decoder_push(&decoder, nullptr) != 0)
        return EBADMSG;
    const char* texts[Count];
    std::size_t size = sizeof(Record);
    for (std::size_t i = 0; i < Count; ++i) {
        texts[i] = "";
        if (pps_decoder_get_string(&decoder, attributes[i].name, &texts[i]) != 0 && errno != ENOENT)
            return EBADMSG;
        size += std::strlen(texts[i]) + 1;
    }
    void* const memory = std::malloc(size);
    if (!memory)
        return ENOMEM;
    record = new (memory) Record{};
    char* end = static_cast<char*>(memory) + sizeof(Record);
    for (std::size_t i = 0; i < Count; ++i) {
        const std::size_t length = std::strlen(texts[i]) + 1;
        std::memcpy(end, texts[i], length);
        record->*attributes[i].member = end;
        end += length;
    }
    return 0;
}

template<class Record, std::size_t Count>
int getRecord(const char* path, const Attribute<Record> (&attributes)[Count], Record** record)
{
    return host::call([&] {
        if (!record)
            return EINVAL;
        *record = nullptr;
        std::string text;
        if (const int error = readText(path, text))
            return error;
        pps_decoder_t decoder;
        int error = 0;
        if (pps_decoder_initialize(&decoder, text.data()) == 0)
            error = makeRecord(decoder, attributes, *record);
        else
            error = errno == ENOMEM ? ENOMEM : EBADMSG;
        pps_decoder_cleanup(&decoder);
        return error;
    });
}

template<class Record>
void freeRecord(Record** record)
{
    if (!record)
        return;
    std::free(*record);
    *record = nullptr;
}

} // namespace

int deviceinfo_get_data(deviceinfo_data_t** data)
{
    return getRecord(DataPath, DataAttributes, data);
}

void deviceinfo_free_data(deviceinfo_data_t** data)
{
    freeRecord(data);
}

int deviceinfo_get_identifying_data(deviceinfo_identifying_data_t** data)
{
    return getRecord(IdentityPath, IdentityAttributes, data);
}

void deviceinfo_free_identifying_data(deviceinfo_identifying_data_t** data)
{
    freeRecord(data);
}
