// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_BENCH_SERVEDMAILBOX_H
#define TAMO_BENCH_SERVEDMAILBOX_H

#include "Descriptor.h"

#include <string>
#include <string_view>
#include <vector>

namespace tamobench {

/** A mailbox below `/pps`, as the service has it that serves it. */
class ServedMailbox
{
public:
    /** Creates the mailbox, and the directory that it lies in, and begins to serve it. */
    explicit ServedMailbox(const std::string& path);

    /**
     * Waits for a client's request, and passes over clients that come and go. Throws where none
     * comes within ten seconds. One request is on its way at a time.
     *
     * @return the request as it is read, at most 16 KiB; valid until the next call
     */
    std::string_view readRequest();

    /** Sends an answer, which begins with the line that names the client. */
    void send(const std::string& answer);

private:
    std::string_view read();

    Descriptor m_mailbox;
    Descriptor m_set; ///< watches the mailbox
    std::vector<char> m_buffer;
};

} // namespace tamobench

#endif
