// SPDX-License-Identifier: Apache-2.0
#include "SubstituteNavigator.h"

namespace tamotest {

SubstituteNavigator::SubstituteNavigator(CallJournal& journal, SubstituteCore& core)
    : EventProvider(journal, core, "navigator", Domain)
{
}

int SubstituteNavigator::invoke(const char* url, char**)
{
    return accept("navigator.invoke", url);
}

int SubstituteNavigator::openFile(const char* path, char**)
{
    return accept("navigator.openFile", path);
}

int SubstituteNavigator::addUri(const char* iconPath, const char* iconLabel, const char* category,
                                const char* url, char**)
{
    return accept("navigator.addUri", iconPath, iconLabel, category, url);
}

int SubstituteNavigator::extendTimeout(int milliseconds, char**)
{
    return accept("navigator.extendTimeout", milliseconds);
}

int SubstituteNavigator::requestSwipeStart()
{
    return accept("navigator.requestSwipeStart");
}

int SubstituteNavigator::stopSwipeStart()
{
    return accept("navigator.stopSwipeStart");
}

int SubstituteNavigator::rotationLock(bool locked)
{
    return accept("navigator.rotationLock", locked);
}

int SubstituteNavigator::setOrientation(int angle, char** id)
{
    return accept("navigator.setOrientation", angle, static_cast<const void*>(id));
}

int SubstituteNavigator::setWindowAngle(int angle)
{
    return accept("navigator.setWindowAngle", angle);
}

int SubstituteNavigator::setClosePrompt(const char* title, const char* message)
{
    return accept("navigator.setClosePrompt", title, message);
}

int SubstituteNavigator::clearClosePrompt()
{
    return accept("navigator.clearClosePrompt");
}

int SubstituteNavigator::setBadge(navigator_badge_t badge)
{
    return accept("navigator.setBadge", static_cast<int>(badge));
}

int SubstituteNavigator::clearBadge()
{
    return accept("navigator.clearBadge");
}

int SubstituteNavigator::eventGetWindowState(const zel_event_t* event)
{
    m_journal.enter("navigator.eventGetWindowState");
    return SubstituteCore::contentOf(event).windowState;
}

const char* SubstituteNavigator::eventGetGroupid(const zel_event_t* event)
{
    return text("navigator.eventGetGroupid", SubstituteCore::contentOf(event).groupId);
}

int SubstituteNavigator::eventGetOrientationAngle(const zel_event_t* event)
{
    m_journal.enter("navigator.eventGetOrientationAngle");
    return SubstituteCore::contentOf(event).angle;
}

const char* SubstituteNavigator::eventGetData(const zel_event_t* event)
{
    return text("navigator.eventGetData", SubstituteCore::contentOf(event).data);
}

const char* SubstituteNavigator::eventGetId(const zel_event_t* event)
{
    return text("navigator.eventGetId", SubstituteCore::contentOf(event).id);
}

const char* SubstituteNavigator::eventGetErr(const zel_event_t* event)
{
    return text("navigator.eventGetErr", SubstituteCore::contentOf(event).err);
}

int SubstituteNavigator::orientationCheckResponse(const zel_event_t*, bool willTurn)
{
    return accept("navigator.orientationCheckResponse", willTurn);
}

int SubstituteNavigator::orientationCheckResponseId(const char* id, bool willTurn)
{
    return accept("navigator.orientationCheckResponseId", id, willTurn);
}

int SubstituteNavigator::doneOrientation(const zel_event_t*)
{
    return accept("navigator.doneOrientation");
}

int SubstituteNavigator::doneOrientationId(const char* id)
{
    return accept("navigator.doneOrientationId", id);
}

const char* SubstituteNavigator::text(const char* operation, const std::optional<std::string>& part)
{
    return m_journal.enter(operation) && part ? part->c_str() : nullptr;
}

} // namespace tamotest
