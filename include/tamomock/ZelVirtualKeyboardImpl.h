// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOMOCK_ZELVIRTUALKEYBOARDIMPL_H
#define TAMOMOCK_ZELVIRTUALKEYBOARDIMPL_H

#include <tamo/export.h>
#include <tamomock/ZelVirtualKeyboard.h>

namespace tamomock {

/**
 * The default ZelVirtualKeyboard: each operation calls the function that it is named after.
 *
 * @since 0.1
 */
class TAMO_EXPORT ZelVirtualKeyboardImpl : public ZelVirtualKeyboard
{
public:
    ~ZelVirtualKeyboardImpl() override;

    int requestEvents(int flags) override;
    int getDomain() override;
    int show() override;
    int hide() override;
    int changeOptions(virtualkeyboard_layout_t layout, virtualkeyboard_enter_t enter) override;
    int getHeight(int* height) override;
    int eventGetHeight(const zel_event_t* event) override;
};

} // namespace tamomock

#endif
