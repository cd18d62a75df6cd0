// SPDX-License-Identifier: Apache-2.0
// An application that follows the displays and reports what it finds and hears, one line each.
// It runs until it is ended. `displays churn N` publishes N changes of display 2 by itself before,
// and reads it meanwhile; `displays again N` makes N managers, one after the other, meanwhile.
#include <tamo/Application.h>
#include <tamo/Exception.h>
#include <tamo/device/Display.h>
#include <tamo/device/DisplayManager.h>

#include <fcntl.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <iostream>
#include <memory>
#include <string>
#include <thread>

using tamo::device::Display;
using tamo::device::DisplayManager;

namespace {

void report(const std::string& line)
{
    std::cout << (line + '\n') << std::flush;
}

std::string text(const QSizeF& size)
{
    return QString::number(size.width()).toStdString() + " x " +
           QString::number(size.height()).toStdString();
}

void describe(DisplayManager& manager, int id)
{
    const Display& display = *manager.getDisplay(id);
    report("display " + std::to_string(display.displayId()) + ": " +
           display.displayName().toStdString() + ", " + text(display.pixelSize()) + ", " +
           text(display.physicalSize()) + " mm, aspect " + std::to_string(display.aspectType()) +
           ", type " + std::to_string(display.displayType()) +
           (display.isAttached() ? ", attached" : ", detached") +
           (display.isDetachable() ? ", detachable" : ", fixed"));
}

void follow(DisplayManager& manager, QObject& receiver)
{
    QObject::connect(&manager, &DisplayManager::displayAttached, &receiver, [&](int id) {
        report("heard displayAttached " + std::to_string(id));
        describe(manager, id);
    });
    QObject::connect(&manager, &DisplayManager::displayDetached, &receiver, [&](int id) {
        report("heard displayDetached " + std::to_string(id));
        describe(manager, id);
    });
}

void publish(bool isAttached)
{
    const std::string message =
        "@displays\ndisplays:json:[{\"id\":1,\"width\":768,\"height\":1280,\"type\":\"internal\"},"
        "{\"id\":2,\"width\":1000,\"height\":1000,\"name\":\"n\",\"attached\":" +
        std::string(isAttached ? "true" : "false") + "}]\n";
    const int object = open("/pps/services/screen/displays", O_WRONLY | O_CLOEXEC);
    if (object == -1 ||
        write(object, message.data(), message.size()) != static_cast<ssize_t>(message.size()))
        report("cannot publish");
    close(object);
}

template<typename Condition>
bool await(const Condition& condition)
{
    const auto limit = std::chrono::steady_clock::now() + std::chrono::seconds(30);
    while (!condition() && std::chrono::steady_clock::now() < limit)
        std::this_thread::yield();
    return condition();
}

void churn(int changes)
{
    publish(false);
    DisplayManager manager;
    Display& display = *manager.getDisplay(2);
    std::atomic<int> heard{0};
    std::atomic<int> outOfTurn{0};
    std::atomic<bool> isAttached{false};
    const auto hear = [&](bool attached) {
        return [&, attached](int) {
            outOfTurn += isAttached.exchange(attached) == attached;
            ++heard;
        };
    };
    QObject::connect(&manager, &DisplayManager::displayAttached, hear(true));
    QObject::connect(&manager, &DisplayManager::displayDetached, hear(false));
    // From the first change that is heard on, none is before the request for events.
    bool isOn = false;
    const auto change = [&] { publish(isOn = !isOn); };
    if (!await([&] {
            change();
            return heard > 0;
        }))
        report("nothing was heard");
    std::atomic<bool> isOver{false};
    int wrong = 0;
    std::thread reader([&] {
        while (!isOver)
            wrong += display.pixelSize() != QSize(1000, 1000) || display.displayName() != "n";
    });
    for (int i = 0; i < changes; ++i)
        change();
    publish(true);
    const bool isSettled = await([&] { return isAttached && display.isAttached(); });
    isOver = true;
    reader.join();
    report("wrong " + std::to_string(wrong) + ", out of turn " + std::to_string(outOfTurn) +
           (isSettled ? ", settled" : ", not settled"));
}

void beginAgain(int managers)
{
    publish(false);
    std::atomic<bool> isOver{false};
    std::thread publisher([&] {
        for (bool isOn = true; !isOver; isOn = !isOn)
            publish(isOn);
    });
    std::atomic<int> heard{0};
    for (int i = 0; i < managers; ++i) {
        DisplayManager manager;
        const int before = heard;
        QObject::connect(&manager, &DisplayManager::displayAttached, [&](int) { ++heard; });
        QObject::connect(&manager, &DisplayManager::displayDetached, [&](int) { ++heard; });
        if (i % 2 == 0 && !await([&] { return heard > before; }))
            report("nothing was heard");
    }
    isOver = true;
    publisher.join();
    report("done");
}

} // namespace

int main(int argc, char** argv)
try {
    tamo::Application application(argc, argv);
    const std::string mode = argc > 2 ? argv[1] : "";
    if (!mode.empty()) {
        (mode == "churn" ? churn : beginAgain)(std::stoi(argv[2]));
        return application.exec();
    }
    DisplayManager manager;
    report("primary " + std::to_string(manager.primaryDisplayId()));
    for (const int id : manager.secondaryDisplayIds())
        report("secondary " + std::to_string(id));
    QObject receiver;
    follow(manager, receiver);
    // Requests are carried out in order: when this is heard, the displays' has been.
    QObject::connect(&application, &tamo::Application::lowMemory, [] { report("low memory"); });
    report("following");
    return application.exec();
} catch (const tamo::Exception& exception) {
    report(std::string("caught ") + exception.what());
    return 1;
}
