// SPDX-License-Identifier: Apache-2.0
#include "report.h"

#include <iostream>

void report(const QString& line)
{
    std::cout << line.toStdString() << std::endl;
}
