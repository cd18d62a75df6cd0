// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_BOXINIT_H
#define TAMOBOX_BOXINIT_H

#include "Application.h"
#include "HelperProcess.h"
#include "SupervisedService.h"

#include "common/BoxPlan.h"
#include "common/BoxSocket.h"
#include "common/EventLoop.h"
#include "common/SignalQueue.h"

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace tamobox {

/**
 * Process 1 of a box: builds it up step by step, starts the application when all is ready, and
 * keeps the box going until the application ends. The box ends with this process: the kernel kills
 * whatever still runs in it.
 */
class BoxInit
{
public:
    explicit BoxInit(BoxPlan plan);

    /**
     * Runs the box from start to end.
     *
     * @return the exit status of the application
     * @throws Failure where the box cannot be built up
     */
    int run();

private:
    void mountProcesses();
    void startFilesystem();
    void createObjects();
    void startServices();
    void startApplication();
    bool waitFor(const std::function<bool()>& condition);

    void readControl();
    void readSignals();
    void reapChildren();
    void filesystemEnded(int waitResult);
    void introduce();
    void note(const std::string& text);

    BoxPlan m_plan;
    std::vector<int> m_callersDescriptors; // open already when the box was started
    SignalQueue m_signals;
    EventLoop m_loop;
    BoxIntroduction m_introduction;
    std::unique_ptr<HelperProcess> m_filesystem;
    std::string m_filesystemComplaint;
    std::vector<std::unique_ptr<SupervisedService>> m_services;
    std::unique_ptr<Application> m_application;
    std::map<int, Descriptor> m_guests; // commands that are at work, by the descriptor's number
    int m_exitStatus = -1;              // -1 while the box is to go on
};

} // namespace tamobox

#endif
