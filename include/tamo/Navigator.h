// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_NAVIGATOR_H
#define TAMO_NAVIGATOR_H

#include <tamo/export.h>

#include <QtCore/QObject>
#include <QtCore/QSharedPointer>
#include <QtCore/QString>
#include <QtCore/QUrl>

namespace tamo {

class OrientationHandler;

/**
 * What the phone's window manager tells an application: its window's state, that it is to leave,
 * that it was invoked with a URL, and that the phone was turned. tamo::Application has the same
 * signals.
 *
 * The navigator is heard while something is connected to any of the signals. They are emitted on a
 * thread of the library's; a receiver in another thread gets them through its event loop, as with
 * any queued connection. A slot that is connected directly runs on that thread: it may connect and
 * disconnect, must be quick, and must not wait for another thread that uses this class. When the
 * last connection has gone, the thread ends soon after. While the application object is being
 * destroyed, nothing is emitted.
 *
 * As with any QObject, a receiver that is connected directly must not be deleted in another thread
 * while it may be called.
 *
 * Where the platform's event library fails, connecting throws tamo::Exception, and there is no
 * connection then. Where it only has no such events, as outside of a box, the connection holds and
 * hears nothing. Where the event library fails while there are connections, these hear nothing any
 * more, and neither do those that are added; once all of them have gone, the next one begins anew.
 *
 * **Turning.** When the phone is turned, the application is asked first whether it turns along; the
 * answer is what setAllowedOrientation() has said. If it does, the window gets the new angle, and
 * the OrientationHandler redraws it.
 *
 * The object takes no events but those of turning: functions that are queued to it, timers in it
 * and deleteLater() have no effect.
 *
 * @since 0.1
 */
class TAMO_EXPORT Navigator : public QObject
{
    Q_OBJECT

public:
    /** To which angles the window may be turned; anything else is like AllowNone. */
    enum AllowedOrientation {
        AllowNone = 0,        ///< to none; the initial value
        AllowAll = 1,         ///< to any
        AllowLandscape = 2,   ///< to those at which the display is wider than high
        AllowPortrait = 3,    ///< to those at which it is not
        AllowDefaultAngle = 4 ///< to 0 degrees
    };

    Navigator();
    ~Navigator() override;

    /**
     * The process's navigator. It is made by the first call, lives in the thread of that call (an
     * OrientationHandler is called there, if it has an event loop), and is never destroyed. May be
     * called from any thread.
     */
    static Navigator* getInstance();

    /** An AllowedOrientation. May be called from any thread. */
    virtual int allowedOrientation() const = 0;

    /**
     * Sets an AllowedOrientation. Where the window's present angle is not allowed by
     * AllowLandscape, AllowPortrait or AllowDefaultAngle, it is turned to one that is. May be
     * called from any thread.
     */
    virtual void setAllowedOrientation(int allow) = 0;

    /**
     * Installs the handler that redraws the window. Null, the initial value: there is none, and
     * each turn is answered as redrawn, in the thread that would call the handler. The navigator
     * keeps the handler until another one is installed. May be called from any thread.
     */
    virtual void setOrientationHandler(QSharedPointer<OrientationHandler> handler) = 0;

    /**
     * The id of the application's window group, as the last thumbnail(), fullscreen(), invisible()
     * or awake() told; null before. May be called from any thread.
     */
    virtual QString windowGroupId() const = 0;

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
    /** The window group does not get the input any more. windowGroupId() stays as it is. */
    void asleep(QString windowGroupId);
    /** The window group gets the input. */
    void awake(QString windowGroupId);
    /** The application is to leave, before the navigator ends it. */
    void exit();
    /** Another orientation handler was installed. Emitted by setOrientationHandler(). */
    void orientationHandlerChanged();
    /** The application is to open this: what QUrl makes of any text, so it may be invalid. */
    void urlHandlerInvoked(QUrl url);
};

} // namespace tamo

#endif
