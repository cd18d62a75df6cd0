// SPDX-License-Identifier: Apache-2.0
#include "PrivatePps.h"
#include "ZelTest.h"

#include <zel/deviceinfo.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <optional>
#include <string>

namespace tamotest {
namespace {

constexpr char Data[] = "services/deviceinfo/data";
constexpr char Identity[] = "services/deviceinfo/identity";

class DeviceInfoTest : public ::testing::Test
{
protected:
    std::optional<PpsFilesystem> filesystem{std::in_place};
};

TEST_F(DeviceInfoTest, ReadsWhatIsPublished)
{
    publish(Data,
            "OsVersion::1.2.0.34\nDeviceName::\xC3\xA4 b\\\\\nModelName::M\nModelNumber::N 1\n");
    deviceinfo_data_t* data = nullptr;
    errno = E2BIG;
    ASSERT_EQ(deviceinfo_get_data(&data), 0);
    EXPECT_EQ(errno, E2BIG);
    EXPECT_STREQ(data->os_version, "1.2.0.34");
    EXPECT_STREQ(data->device_name, "\xC3\xA4 b\\");
    EXPECT_STREQ(data->model_name, "M");
    EXPECT_STREQ(data->model_number, "N 1");
    deviceinfo_free_data(&data);
    EXPECT_EQ(data, nullptr);

    publish(Identity, "SerialNumber::s\nHardwareId::h\n");
    deviceinfo_identifying_data_t* identity = nullptr;
    ASSERT_EQ(deviceinfo_get_identifying_data(&identity), 0);
    EXPECT_STREQ(identity->serial_number, "s");
    EXPECT_STREQ(identity->hardware_id, "h");
    deviceinfo_free_identifying_data(&identity);
    EXPECT_EQ(identity, nullptr);
}

TEST_F(DeviceInfoTest, ReadsAnewAtEachCall)
{
    for (const char* const version : {"1.0.0.0", "2.0.0.0"}) {
        publish(Data, std::string("OsVersion::") + version);
        deviceinfo_data_t* data = nullptr;
        ASSERT_EQ(deviceinfo_get_data(&data), 0);
        EXPECT_STREQ(data->os_version, version);
        EXPECT_STREQ(data->device_name, "") << "what is missing is unknown";
        deviceinfo_free_data(&data);
    }
}

TEST_F(DeviceInfoTest, AnyThreadMayRead)
{
    publish(Data, "OsVersion::1.0.0.0");
    inThread([] {
        deviceinfo_data_t* data = nullptr;
        EXPECT_EQ(deviceinfo_get_data(&data), 0);
        deviceinfo_free_data(&data);
    });
}

TEST_F(DeviceInfoTest, IsEnoentWhereNothingIsPublished)
{
    deviceinfo_data_t junk{};
    deviceinfo_data_t* data = &junk;
    EXPECT_THAT(deviceinfo_get_data(&data), FailsWith(ENOENT));
    EXPECT_EQ(data, nullptr);
    mkdir("/pps/services", 0777);
    mkdir("/pps/services/deviceinfo", 0777);
    close(open("/pps/services/deviceinfo/data", O_WRONLY | O_CREAT | O_CLOEXEC, 0644));
    EXPECT_THAT(deviceinfo_get_data(&data), FailsWith(ENOENT));
    filesystem.reset();
    EXPECT_THAT(deviceinfo_get_data(&data), FailsWith(ENOENT));
    deviceinfo_identifying_data_t* identity = nullptr;
    EXPECT_THAT(deviceinfo_get_identifying_data(&identity), FailsWith(ENOENT));
}

TEST_F(DeviceInfoTest, IsEbadmsgWhereItIsOfAnotherKind)
{
    for (const char* const line :
         {"OsVersion:n:1", "OsVersion:json:{}", "ModelName:b:true", "ModelNumber:json:null"}) {
        filesystem.reset();
        filesystem.emplace();
        publish(Data, line);
        deviceinfo_data_t* data = nullptr;
        EXPECT_THAT(deviceinfo_get_data(&data), FailsWith(EBADMSG)) << line;
        EXPECT_EQ(data, nullptr);
    }
}

TEST_F(DeviceInfoTest, NullIsRefusedOrAllowed)
{
    EXPECT_THAT(deviceinfo_get_data(nullptr), FailsWith(EINVAL));
    EXPECT_THAT(deviceinfo_get_identifying_data(nullptr), FailsWith(EINVAL));
    deviceinfo_data_t* data = nullptr;
    deviceinfo_identifying_data_t* identity = nullptr;
    deviceinfo_free_data(&data);
    deviceinfo_free_data(nullptr);
    deviceinfo_free_identifying_data(&identity);
    deviceinfo_free_identifying_data(nullptr);
}

TEST_F(DeviceInfoTest, LeavesNoDescriptors)
{
    publish(Data, "OsVersion::1.0.0.0");
    const std::size_t before = openDescriptors();
    for (int i = 0; i < 10; ++i) {
        deviceinfo_data_t* data = nullptr;
        deviceinfo_get_data(&data);
        deviceinfo_free_data(&data);
    }
    EXPECT_EQ(openDescriptors(), before);
}

TEST_F(DeviceInfoTest, IdentityMayBeForbidden)
{
    publish(Identity, "SerialNumber::s\n");
    ASSERT_EQ(chmod("/pps/services/deviceinfo/identity", 0), 0);
    if (geteuid() != 0) {
        deviceinfo_identifying_data_t* identity = nullptr;
        EXPECT_THAT(deviceinfo_get_identifying_data(&identity), FailsWith(EACCES));
        return;
    }
    EXPECT_EQ(inChild([] {
                  if (setuid(65534) != 0)
                      return 1;
                  deviceinfo_identifying_data_t* identity = nullptr;
                  return deviceinfo_get_identifying_data(&identity) == -1 && errno == EACCES ? 0
                                                                                             : 2;
              }),
              0);
}

} // namespace
} // namespace tamotest
