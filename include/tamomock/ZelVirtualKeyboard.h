// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOMOCK_ZELVIRTUALKEYBOARD_H
#define TAMOMOCK_ZELVIRTUALKEYBOARD_H

#include <tamo/export.h>
#include <tamomock/ZelEventProvider.h>

#include <zel/virtualkeyboard.h>

namespace tamomock {

/**
 * The virtual keyboard, as the library calls it: one operation for each function of
 * `<zel/virtualkeyboard.h>`, named after it without `virtualkeyboard_`, after those of
 * ZelEventProvider. What a function takes, returns and does is said there; an operation of a
 * substitute keeps to it as far as the code under test looks.
 *
 * @since 0.1
 */
class TAMO_EXPORT ZelVirtualKeyboard : public ZelEventProvider
{
public:
    ~ZelVirtualKeyboard() override;

    virtual int show() = 0;
    virtual int hide() = 0;
    virtual int changeOptions(virtualkeyboard_layout_t layout, virtualkeyboard_enter_t enter) = 0;
    virtual int getHeight(int* height) = 0;
    virtual int eventGetHeight(const zel_event_t* event) = 0;
};

} // namespace tamomock

#endif
