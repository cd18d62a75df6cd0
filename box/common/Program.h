// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_PROGRAM_H
#define TAMOBOX_PROGRAM_H

#include <string>
#include <vector>

namespace tamobox {

/**
 * The path of a program that belongs to this one: it is looked for beside the calling program and
 * in the directory of the helper programs, so that a build tree and an installation work alike.
 *
 * @throws Failure where there is none
 */
std::string findOwnProgram(const std::string& name);

/** The path of a program in the directories of `PATH`; empty where there is none. */
std::string findInPath(const std::string& name);

/**
 * Executes a program in place of the calling one, with that program's arguments and the present
 * environment, looking for it in `PATH` as a shell does. Returns only where it fails: the `errno`.
 */
int executeProgram(const std::vector<std::string>& arguments);

/** The exit status that stands for a program which could not be executed: 126, or 127. */
int statusForExecuteError(int error);

/** "cannot run 'NAME': ..." for such a program. */
std::string textForExecuteError(const std::string& program, int error);

/** The exit status that stands for what waitpid() reported: 128 plus the signal's number for one.
 */
int statusForWaitResult(int waitResult);

/** "exited with status 3" or "ended by signal 9". */
std::string textForWaitResult(int waitResult);

} // namespace tamobox

#endif
