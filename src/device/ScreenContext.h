// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_DEVICE_SCREENCONTEXT_H
#define TAMO_DEVICE_SCREENCONTEXT_H

#include <screen/screen.h>

#include <vector>

namespace tamomock {
class ScreenApi;
} // namespace tamomock

namespace tamo {
namespace device {

/** The DisplayManager's context of the screen library; ends with it. */
class ScreenContext
{
public:
    /** @throws tamo::Exception where there is none to be had, after a line of the log */
    explicit ScreenContext(tamomock::ScreenApi& screen);
    ScreenContext(const ScreenContext&) = delete;
    ScreenContext& operator=(const ScreenContext&) = delete;
    ~ScreenContext();

    /** The handle as request flags, which are an `int`. */
    int flags() const;

    /**
     * The handles of the displays that there are now, in the screen library's order; those that
     * went while they were asked for are left out. Logs how many there are.
     *
     * @throws tamo::Exception where they cannot be had, after a line of the log
     */
    std::vector<screen_display_t> displays() const;

private:
    int displayCount() const;

    tamomock::ScreenApi& m_screen;
    screen_context_t m_context = nullptr;
};

} // namespace device
} // namespace tamo

#endif
