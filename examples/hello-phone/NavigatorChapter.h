// SPDX-License-Identifier: Apache-2.0
#ifndef HELLO_PHONE_NAVIGATORCHAPTER_H
#define HELLO_PHONE_NAVIGATORCHAPTER_H

namespace tamo {
class Application;
}

/** Reports what the navigator tells about the window and the application: `window: thumbnail`. */
class NavigatorChapter
{
public:
    /** @param application whose signals are reported; outlives this */
    explicit NavigatorChapter(const tamo::Application& application);
};

#endif
