// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_ORIENTATIONHANDLER_H
#define TAMO_ORIENTATIONHANDLER_H

#include <tamo/export.h>

#include <QtCore/QSharedPointer>

namespace tamo {

/**
 * Redraws an application's window for a new angle. An application implements it and installs it
 * with Navigator::setOrientationHandler().
 *
 * @since 0.1
 */
class TAMO_EXPORT OrientationHandler
{
public:
    /** The navigator's request to redraw, which waits for its answer. */
    class TAMO_EXPORT OrientationRequest
    {
    public:
        /**
         * Tells the navigator that the window has been redrawn. May be called from any thread and
         * at any time, also after the handler was replaced; only the first call of a request
         * counts. A request that is dropped without it is never answered: the navigator goes on
         * when it has waited long enough.
         */
        virtual void done() = 0;

    protected:
        // A request belongs to its shared pointers, which delete it as what it is.
        ~OrientationRequest() = default;
    };

    /**
     * The window is at another angle now. Called in the thread that the Navigator lives in, with no
     * lock held, so that it may call the Navigator. An exception that leaves it goes through Qt's
     * event loop, to the application's notify().
     *
     * @param angle 0, 90, 180 or 270 degrees
     * @param request to be answered when the window has been redrawn, at once or later
     */
    virtual void handleOrientationRequest(int angle,
                                          QSharedPointer<OrientationRequest> request) = 0;

    virtual ~OrientationHandler();
};

} // namespace tamo

#endif
