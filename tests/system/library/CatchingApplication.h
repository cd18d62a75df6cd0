// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_TESTS_CATCHINGAPPLICATION_H
#define TAMO_TESTS_CATCHINGAPPLICATION_H

#include <QCoreApplication>

#include <exception>
#include <string>
#include <vector>

namespace tamotest {

/** An application that goes on after an exception has come out of a slot. */
class CatchingApplication : public QCoreApplication
{
public:
    using QCoreApplication::QCoreApplication;

    static CatchingApplication* instance()
    {
        return static_cast<CatchingApplication*>(QCoreApplication::instance());
    }

    bool notify(QObject* receiver, QEvent* event) override
    {
        try {
            return QCoreApplication::notify(receiver, event);
        } catch (const std::exception& exception) {
            caught.emplace_back(exception.what());
            return false;
        }
    }

    /** What the exceptions said. */
    std::vector<std::string> caught;
};

} // namespace tamotest

#endif
