// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_TESTS_PRIVATEPPS_H
#define TAMO_TESTS_PRIVATEPPS_H

#include <sys/types.h>

#include <string>

namespace tamotest {

/**
 * Starts the calling program again in a private mount namespace, with the machine's own files and
 * an empty directory `/pps` of its own, and returns only there. Call it first in main(), before
 * there are threads. Works as root and as an ordinary user. Where the machine does not allow it,
 * prints the reason and exits with 77 (skipped).
 */
void enterPrivateNamespace(int argc, char** argv);

/** A real ppsfs on `/pps`, mounted on construction and gone after destruction. */
class PpsFilesystem
{
public:
    PpsFilesystem();
    ~PpsFilesystem();
    PpsFilesystem(const PpsFilesystem&) = delete;
    PpsFilesystem& operator=(const PpsFilesystem&) = delete;

    /** The process that serves the filesystem. */
    pid_t pid() const { return m_pid; }

    /** Kills that process with SIGKILL and waits for its end; what is open on `/pps` fails from
     * then on. */
    void kill();

private:
    pid_t m_pid = -1;
};

/** Writes one PPS message to an object below `/pps`, creating it and its directories where they are
 * not there. */
void publish(const std::string& path, const std::string& text);

} // namespace tamotest

#endif
