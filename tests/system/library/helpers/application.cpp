// SPDX-License-Identifier: Apache-2.0
// An application under a test's command. It reports each signal and each order that it has carried
// out, one line each. Orders are its arguments, and URLs that it is invoked with: `order:allow?1`.
#include <tamo/Application.h>
#include <tamo/Navigator.h>
#include <tamo/OrientationHandler.h>
#include <tamo/platform/osVersion.h>

#include <QTimer>

#include <iostream>
#include <map>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

using tamo::Application;
using tamo::Navigator;

namespace {

using Request = QSharedPointer<tamo::OrientationHandler::OrientationRequest>;

void report(const std::string& line)
{
    std::cout << (line + '\n') << std::flush;
}

std::vector<Request> keptRequests;

const std::map<std::string, void (*)(const Request&)> waysToAnswer = {
    {"now", [](const Request& request) { request->done(); }},
    {"twice",
     [](const Request& request) {
         request->done();
         request->done();
     }},
    {"keep", [](const Request& request) { keptRequests.push_back(request); }},
    {"drop", [](const Request&) {}},
    {"thread", [](const Request& request) { std::thread([request] { request->done(); }).join(); }},
    {"throw", [](const Request&) { throw std::runtime_error("no paint left"); }},
};

class Painter : public tamo::OrientationHandler
{
public:
    explicit Painter(void (*answer)(const Request&)) : m_answer(answer) {}

    void handleOrientationRequest(int angle, QSharedPointer<OrientationRequest> request) override
    {
        report("paint " + std::to_string(angle));
        m_answer(request);
    }

private:
    void (*const m_answer)(const Request&);
};

/** Lives with what its handlers throw. */
class Tolerant : public Application
{
public:
    using Application::Application;

    bool notify(QObject* receiver, QEvent* event) override
    {
        try {
            return Application::notify(receiver, event);
        } catch (const std::exception& exception) {
            report(std::string("caught ") + exception.what());
            return true;
        }
    }
};

void carryOut(const std::string& order, const std::string& argument)
{
    Navigator& navigator = *Navigator::getInstance();
    if (order == "allow") {
        navigator.setAllowedOrientation(std::stoi(argument));
    } else if (order == "handler") {
        const auto way = waysToAnswer.find(argument);
        navigator.setOrientationHandler(way != waysToAnswer.end()
                                            ? QSharedPointer<Painter>::create(way->second)
                                            : QSharedPointer<Painter>());
    } else if (order == "done") {
        for (const Request& request : std::exchange(keptRequests, {}))
            request->done();
    } else if (order == "group") {
        report("group " + navigator.windowGroupId().toStdString());
    } else if (order == "version") {
        report("version " + tamo::platform::osVersion().toStdString());
    } else if (order == "quit") {
        QCoreApplication::exit(std::stoi(argument));
    }
    report("ordered " + order);
}

void connectAll(const Application& application)
{
    const auto connectWithId = [&](auto signal, const std::string& name) {
        QObject::connect(&application, signal, [name](const QString& id) {
            report("heard " + name + ' ' + id.toStdString());
        });
    };
    connectWithId(&Application::thumbnail, "thumbnail");
    connectWithId(&Application::fullscreen, "fullscreen");
    connectWithId(&Application::invisible, "invisible");
    connectWithId(&Application::asleep, "asleep");
    connectWithId(&Application::awake, "awake");
    QObject::connect(&application, &Application::swipeDown, [] { report("heard swipeDown"); });
    QObject::connect(&application, &Application::lowMemory, [] { report("heard lowMemory"); });
    QObject::connect(&application, &Application::urlHandlerInvoked, [](const QUrl& url) {
        if (url.scheme() == QLatin1String("order"))
            carryOut(url.path().toStdString(), url.query().toStdString());
        else
            report("heard urlHandlerInvoked " + url.toString().toStdString());
    });
}

} // namespace

int main(int argc, char** argv)
{
    Tolerant application(argc, argv);
    connectAll(application);
    for (int i = 1; i < argc; ++i) {
        const std::string order = argv[i];
        const std::size_t mark = order.find('?');
        carryOut(order.substr(0, mark), mark != std::string::npos ? order.substr(mark + 1) : "");
    }
    QTimer::singleShot(0, [] {
        report("listening as app-" + std::to_string(QCoreApplication::applicationPid()));
    });
    const int status = application.exec();
    report("leaving");
    return status;
}
