// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_APPLICATION_H
#define TAMO_APPLICATION_H

#include <tamo/export.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QString>
#include <QtCore/QUrl>

#include <memory>

namespace tamo {

class ApplicationPrivate;

/**
 * The application object. It relays what the Navigator tells about the application's window and
 * life, in the application's thread, and quits the event loop when the navigator asks the
 * application to leave. Slots of the application's own that are connected to Navigator::exit() may
 * not be reached any more then; what is to be done last belongs into aboutToQuit(). An application
 * that wants to decide for itself when to leave takes the connection apart:
 *
 *     QObject::disconnect(Navigator::getInstance(), SIGNAL(exit()), &application, SLOT(quit()));
 *
 * @since 0.1
 */
class TAMO_EXPORT Application : public QCoreApplication
{
    Q_OBJECT

public:
    /**
     * As QCoreApplication. Makes the Navigator, if it is not there yet, and begins to hear it.
     * Without a phone around, nothing is ever heard, and nothing fails.
     *
     * @throws tamo::Exception where the platform's event library fails
     */
    Application(int& argc, char** argv);

    /**
     * Lets go of the Navigator, which stays: when it returns, no signal of the Navigator's is on
     * its way to this object. Waits, for five seconds at most, for a slot that runs directly on the
     * library's thread.
     */
    ~Application() override;

Q_SIGNALS:
    /** The window has become a thumbnail. */
    void thumbnail(QString windowGroupId);
    /** The window fills the screen. */
    void fullscreen(QString windowGroupId);
    /** The window cannot be seen. */
    void invisible(QString windowGroupId);
    /** The user swiped down from the upper edge. */
    void swipeDown();
    /** Memory is short: what is not needed had better be freed. */
    void lowMemory();
    /** The window group does not get the input any more. */
    void asleep(QString windowGroupId);
    /** The window group gets the input. */
    void awake(QString windowGroupId);
    /** The application is to open this: what QUrl makes of any text, so it may be invalid. */
    void urlHandlerInvoked(QUrl url);

private:
    const std::unique_ptr<ApplicationPrivate> d;
};

} // namespace tamo

#endif
