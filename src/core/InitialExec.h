// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_CORE_INITIALEXEC_H
#define TAMO_CORE_INITIALEXEC_H

/**
 * Stands before a small variable that each thread has of its own: it is found without a call of the
 * dynamic linker, which the library then does not need. Such storage is scarce in a process, so
 * what is larger hangs on a pointer.
 */
#define TAMO_INITIAL_EXEC [[gnu::tls_model("initial-exec")]]

#endif
