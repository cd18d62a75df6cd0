// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOMOCK_ZELDIALOG_H
#define TAMOMOCK_ZELDIALOG_H

#include <tamo/export.h>
#include <tamomock/ZelEventProvider.h>

#include <zel/dialog.h>

namespace tamomock {

/**
 * The dialogs, as the library calls it: one operation for each function of `<zel/dialog.h>`, named
 * after it without `dialog_`, after those of ZelEventProvider. What a function takes, returns and
 * does is said there; an operation of a substitute keeps to it as far as the code under test looks.
 *
 * @since 0.1
 */
class TAMO_EXPORT ZelDialog : public ZelEventProvider
{
public:
    ~ZelDialog() override;

    virtual int show(dialog_instance_t dialog) = 0;
    virtual int update(dialog_instance_t dialog) = 0;
    virtual int cancel(dialog_instance_t dialog) = 0;
    virtual int destroy(dialog_instance_t dialog) = 0;
    virtual int setSize(dialog_instance_t dialog, dialog_size_t size) = 0;
    virtual int setPosition(dialog_instance_t dialog, dialog_position_t position) = 0;
    virtual int setBackgroundAlpha(dialog_instance_t dialog, double alpha) = 0;
    virtual int setCoverSensitivity(dialog_instance_t dialog, bool sensitive) = 0;
    virtual int setTitleText(dialog_instance_t dialog, const char* text) = 0;
    virtual int setHtmlTitleText(dialog_instance_t dialog, const char* html) = 0;
    virtual int setGroupId(dialog_instance_t dialog, const char* groupId) = 0;
    virtual int setCancelRequired(dialog_instance_t dialog, bool required) = 0;
    virtual int setDefaultButtonIndex(dialog_instance_t dialog, int index) = 0;
    virtual int addButton(dialog_instance_t dialog, const char* label, bool enabled,
                          const char* context, bool visible) = 0;
    virtual int updateButton(dialog_instance_t dialog, int index, const char* label, bool enabled,
                             const char* context, bool visible) = 0;
    virtual int removeButton(dialog_instance_t dialog, int index) = 0;
    virtual dialog_instance_t eventGetDialogInstance(const zel_event_t* event) = 0;
    virtual int eventGetSelectedIndex(const zel_event_t* event) = 0;
    virtual const char* eventGetSelectedLabel(const zel_event_t* event) = 0;
    virtual const char* eventGetSelectedContext(const zel_event_t* event) = 0;
    virtual int createAlert(dialog_instance_t* dialog) = 0;
    virtual int setAlertMessageText(dialog_instance_t alert, const char* text) = 0;
    virtual int setAlertHtmlMessageText(dialog_instance_t alert, const char* html) = 0;
    virtual int createContextMenu(dialog_instance_t* dialog) = 0;
    virtual int setContextMenuCoordinates(dialog_instance_t menu, int x, int y) = 0;
    virtual int setContextMenuWidth(dialog_instance_t menu, int width) = 0;
    virtual int setContextMenuHeight(dialog_instance_t menu, int height) = 0;
    virtual int contextMenuAddButton(dialog_instance_t menu, const char* label, bool enabled,
                                     const char* context, bool visible, const char* iconPath) = 0;
    virtual int contextMenuUpdateButton(dialog_instance_t menu, int index, const char* label,
                                        bool enabled, const char* context, bool visible,
                                        const char* iconPath) = 0;
    virtual int createPrompt(dialog_instance_t* dialog) = 0;
    virtual int setPromptMessageText(dialog_instance_t prompt, const char* text) = 0;
    virtual int setPromptHtmlMessageText(dialog_instance_t prompt, const char* html) = 0;
    virtual int setPromptInputField(dialog_instance_t prompt, const char* text) = 0;
    virtual int setPromptInputPlaceholder(dialog_instance_t prompt, const char* text) = 0;
    virtual const char* eventGetPromptInputField(const zel_event_t* event) = 0;
};

} // namespace tamomock

#endif
