// SPDX-License-Identifier: Apache-2.0
#ifndef HELLO_PHONE_REPORT_H
#define HELLO_PHONE_REPORT_H

#include <QString>

/** Prints one line on the standard output, at once, so that a script can wait for it. */
void report(const QString& line);

#endif
