// SPDX-License-Identifier: Apache-2.0
#include "OrientationChapter.h"

#include "report.h"

#include <tamo/Navigator.h>
#include <tamo/OrientationHandler.h>

using tamo::Navigator;

namespace {

class Painter : public tamo::OrientationHandler
{
public:
    void handleOrientationRequest(int angle, QSharedPointer<OrientationRequest> request) override
    {
        // An application with a window would draw it here, and answer when that is done.
        report(QStringLiteral("orientation: redrawn for %1 degrees").arg(angle));
        request->done();
    }
};

} // namespace

OrientationChapter::OrientationChapter()
{
    Navigator& navigator = *Navigator::getInstance();
    navigator.setOrientationHandler(QSharedPointer<Painter>::create());
    navigator.setAllowedOrientation(Navigator::AllowAll);
}
