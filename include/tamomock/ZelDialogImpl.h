// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOMOCK_ZELDIALOGIMPL_H
#define TAMOMOCK_ZELDIALOGIMPL_H

#include <tamo/export.h>
#include <tamomock/ZelDialog.h>

namespace tamomock {

/**
 * The default ZelDialog: each operation calls the function that it is named after.
 *
 * @since 0.1
 */
class TAMO_EXPORT ZelDialogImpl : public ZelDialog
{
public:
    ~ZelDialogImpl() override;

    int requestEvents(int flags) override;
    int getDomain() override;
    int show(dialog_instance_t dialog) override;
    int update(dialog_instance_t dialog) override;
    int cancel(dialog_instance_t dialog) override;
    int destroy(dialog_instance_t dialog) override;
    int setSize(dialog_instance_t dialog, dialog_size_t size) override;
    int setPosition(dialog_instance_t dialog, dialog_position_t position) override;
    int setBackgroundAlpha(dialog_instance_t dialog, double alpha) override;
    int setCoverSensitivity(dialog_instance_t dialog, bool sensitive) override;
    int setTitleText(dialog_instance_t dialog, const char* text) override;
    int setHtmlTitleText(dialog_instance_t dialog, const char* html) override;
    int setGroupId(dialog_instance_t dialog, const char* groupId) override;
    int setCancelRequired(dialog_instance_t dialog, bool required) override;
    int setDefaultButtonIndex(dialog_instance_t dialog, int index) override;
    int addButton(dialog_instance_t dialog, const char* label, bool enabled, const char* context,
                  bool visible) override;
    int updateButton(dialog_instance_t dialog, int index, const char* label, bool enabled,
                     const char* context, bool visible) override;
    int removeButton(dialog_instance_t dialog, int index) override;
    dialog_instance_t eventGetDialogInstance(const zel_event_t* event) override;
    int eventGetSelectedIndex(const zel_event_t* event) override;
    const char* eventGetSelectedLabel(const zel_event_t* event) override;
    const char* eventGetSelectedContext(const zel_event_t* event) override;
    int createAlert(dialog_instance_t* dialog) override;
    int setAlertMessageText(dialog_instance_t alert, const char* text) override;
    int setAlertHtmlMessageText(dialog_instance_t alert, const char* html) override;
    int createContextMenu(dialog_instance_t* dialog) override;
    int setContextMenuCoordinates(dialog_instance_t menu, int x, int y) override;
    int setContextMenuWidth(dialog_instance_t menu, int width) override;
    int setContextMenuHeight(dialog_instance_t menu, int height) override;
    int contextMenuAddButton(dialog_instance_t menu, const char* label, bool enabled,
                             const char* context, bool visible, const char* iconPath) override;
    int contextMenuUpdateButton(dialog_instance_t menu, int index, const char* label, bool enabled,
                                const char* context, bool visible, const char* iconPath) override;
    int createPrompt(dialog_instance_t* dialog) override;
    int setPromptMessageText(dialog_instance_t prompt, const char* text) override;
    int setPromptHtmlMessageText(dialog_instance_t prompt, const char* html) override;
    int setPromptInputField(dialog_instance_t prompt, const char* text) override;
    int setPromptInputPlaceholder(dialog_instance_t prompt, const char* text) override;
    const char* eventGetPromptInputField(const zel_event_t* event) override;
};

} // namespace tamomock

#endif
