// SPDX-License-Identifier: Apache-2.0
#include "DaemonBus.h"

#include "Descriptor.h"

#include <array>
#include <fstream>
#include <stdexcept>

#include <fcntl.h>

namespace tamobench {

namespace {

const char* const configuration = R"(<busconfig>
  <type>session</type>
  <listen>%ADDRESS%</listen>
  <auth>EXTERNAL</auth>
  <policy context="default">
    <allow send_destination="*" eavesdrop="true"/>
    <allow eavesdrop="true"/>
    <allow own="*"/>
  </policy>
  <limit name="max_completed_connections">100000</limit>
  <limit name="max_connections_per_user">100000</limit>
  <limit name="max_incoming_bytes">1000000000</limit>
  <limit name="max_outgoing_bytes">1000000000</limit>
</busconfig>
)";

} // namespace

DaemonBus::DaemonBus()
{
    const std::string file = directory().path() + "/bus.conf";
    std::string text = configuration;
    const std::string placeholder = "%ADDRESS%";
    text.replace(text.find(placeholder), placeholder.size(), address());
    std::ofstream(file) << text;

    std::array<int, 2> ready = {};
    if (::pipe(ready.data()) < 0)
        throwErrno("pipe");
    Descriptor readEnd(ready[0], "pipe");
    Descriptor writeEnd(ready[1], "pipe");
    const std::string log = directory().path() + "/daemon.log";
    m_daemon = ChildProcess([&] {
        const Descriptor output(::open(log.c_str(), O_WRONLY | O_CREAT, 0600), "open " + log);
        ::dup2(output.get(), STDERR_FILENO);
        execute({"dbus-daemon", "--nofork", "--nopidfile", "--config-file=" + file,
                 "--print-address=" + std::to_string(writeEnd.get())});
    });
    writeEnd.close();

    // The daemon prints its address when it listens; the pipe ends without a byte where it cannot.
    char byte = 0;
    if (::read(readEnd.get(), &byte, 1) != 1) {
        std::string reason;
        std::getline(std::ifstream(log), reason);
        throw std::runtime_error("dbus-daemon does not start: " + reason);
    }
}

} // namespace tamobench
