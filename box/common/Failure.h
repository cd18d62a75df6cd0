// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_FAILURE_H
#define TAMOBOX_FAILURE_H

#include <stdexcept>
#include <string>

namespace tamobox {

/** How the programs of the box end. An application's own status may be any of these, too. */
namespace status {
inline constexpr int failed = 1;          ///< a command could not do what it was asked to
inline constexpr int usage = 2;           ///< a command was asked in a wrong way
inline constexpr int ppsGone = 69;        ///< a service ended because `/pps` did
inline constexpr int boxFailed = 125;     ///< run, exec, shell: the box failed, not the application
inline constexpr int notExecutable = 126; ///< run, exec, shell: found, but it cannot be executed
inline constexpr int notFound = 127;      ///< run, exec, shell: there is no such program
inline constexpr int signalBase = 128;    ///< plus the number of the signal that ended the program
} // namespace status

/**
 * Something could not be done. what() is one sentence without a line end that says what was wrong
 * and, where that is known, what would be right.
 */
class Failure : public std::runtime_error
{
public:
    explicit Failure(const std::string& sentence, int exitStatus = status::failed)
        : std::runtime_error(sentence), m_exitStatus(exitStatus)
    {
    }

    /** The status that a program ends with when nobody handles the failure. */
    int exitStatus() const { return m_exitStatus; }

private:
    int m_exitStatus;
};

/** The system's words for an `errno` value. */
std::string errorText(int error);

/** A failure of a system call: "WHAT: " and the system's words for `errno`, which is read first. */
Failure systemFailure(const std::string& what);

} // namespace tamobox

#endif
