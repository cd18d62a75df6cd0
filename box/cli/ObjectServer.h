// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_OBJECTSERVER_H
#define TAMOBOX_OBJECTSERVER_H

#include "pps/ObjectFile.h"

#include <functional>
#include <string>

namespace tamobox {

/**
 * A mailbox's server for people: hands out as text whatever reaches it, and answers each request
 * with the next block of lines of standard input, which an empty line or the end of the input ends.
 * An empty block is no answer.
 */
class ObjectServer
{
public:
    using MessageHandler = std::function<void(const std::string& message)>;

    /**
     * Serves from now on; requests wait until run().
     *
     * @throws ObjectFailure
     */
    explicit ObjectServer(const std::string& object);

    /**
     * Serves until there were so many requests.
     *
     * @param count 0 for no end
     * @param onMessage called with each message, a client's coming and going included
     * @throws ObjectFailure where `/pps` ends
     */
    void run(int count, const MessageHandler& onMessage);

private:
    void answer(const std::string& client);
    std::string readBlock();
    bool readInput();
    void waitFor(int descriptor);

    ObjectFile m_file;
    std::string m_input; // read, but not yet used
    bool m_inputEnded = false;
};

} // namespace tamobox

#endif
