// SPDX-License-Identifier: Apache-2.0
#include <tamomock/ZelDialogImpl.h>

namespace tamomock {

ZelDialogImpl::~ZelDialogImpl() = default;

int ZelDialogImpl::requestEvents(int flags)
{
    return dialog_request_events(flags);
}

int ZelDialogImpl::getDomain()
{
    return dialog_get_domain();
}

int ZelDialogImpl::show(dialog_instance_t dialog)
{
    return dialog_show(dialog);
}

int ZelDialogImpl::update(dialog_instance_t dialog)
{
    return dialog_update(dialog);
}

int ZelDialogImpl::cancel(dialog_instance_t dialog)
{
    return dialog_cancel(dialog);
}

int ZelDialogImpl::destroy(dialog_instance_t dialog)
{
    return dialog_destroy(dialog);
}

int ZelDialogImpl::setSize(dialog_instance_t dialog, dialog_size_t size)
{
    return dialog_set_size(dialog, size);
}

int ZelDialogImpl::setPosition(dialog_instance_t dialog, dialog_position_t position)
{
    return dialog_set_position(dialog, position);
}

int ZelDialogImpl::setBackgroundAlpha(dialog_instance_t dialog, double alpha)
{
    return dialog_set_background_alpha(dialog, alpha);
}

int ZelDialogImpl::setCoverSensitivity(dialog_instance_t dialog, bool sensitive)
{
    return dialog_set_cover_sensitivity(dialog, sensitive);
}

int ZelDialogImpl::setTitleText(dialog_instance_t dialog, const char* text)
{
    return dialog_set_title_text(dialog, text);
}

int ZelDialogImpl::setHtmlTitleText(dialog_instance_t dialog, const char* html)
{
    return dialog_set_html_title_text(dialog, html);
}

int ZelDialogImpl::setGroupId(dialog_instance_t dialog, const char* groupId)
{
    return dialog_set_group_id(dialog, groupId);
}

int ZelDialogImpl::setCancelRequired(dialog_instance_t dialog, bool required)
{
    return dialog_set_cancel_required(dialog, required);
}

int ZelDialogImpl::setDefaultButtonIndex(dialog_instance_t dialog, int index)
{
    return dialog_set_default_button_index(dialog, index);
}

int ZelDialogImpl::addButton(dialog_instance_t dialog, const char* label, bool enabled,
                             const char* context, bool visible)
{
    return dialog_add_button(dialog, label, enabled, context, visible);
}

int ZelDialogImpl::updateButton(dialog_instance_t dialog, int index, const char* label,
                                bool enabled, const char* context, bool visible)
{
    return dialog_update_button(dialog, index, label, enabled, context, visible);
}

int ZelDialogImpl::removeButton(dialog_instance_t dialog, int index)
{
    return dialog_remove_button(dialog, index);
}

dialog_instance_t ZelDialogImpl::eventGetDialogInstance(const zel_event_t* event)
{
    return dialog_event_get_dialog_instance(event);
}

int ZelDialogImpl::eventGetSelectedIndex(const zel_event_t* event)
{
    return dialog_event_get_selected_index(event);
}

const char* ZelDialogImpl::eventGetSelectedLabel(const zel_event_t* event)
{
    return dialog_event_get_selected_label(event);
}

const char* ZelDialogImpl::eventGetSelectedContext(const zel_event_t* event)
{
    return dialog_event_get_selected_context(event);
}

int ZelDialogImpl::createAlert(dialog_instance_t* dialog)
{
    return dialog_create_alert(dialog);
}

int ZelDialogImpl::setAlertMessageText(dialog_instance_t alert, const char* text)
{
    return dialog_set_alert_message_text(alert, text);
}

int ZelDialogImpl::setAlertHtmlMessageText(dialog_instance_t alert, const char* html)
{
    return dialog_set_alert_html_message_text(alert, html);
}

int ZelDialogImpl::createContextMenu(dialog_instance_t* dialog)
{
    return dialog_create_context_menu(dialog);
}

int ZelDialogImpl::setContextMenuCoordinates(dialog_instance_t menu, int x, int y)
{
    return dialog_set_context_menu_coordinates(menu, x, y);
}

int ZelDialogImpl::setContextMenuWidth(dialog_instance_t menu, int width)
{
    return dialog_set_context_menu_width(menu, width);
}

int ZelDialogImpl::setContextMenuHeight(dialog_instance_t menu, int height)
{
    return dialog_set_context_menu_height(menu, height);
}

int ZelDialogImpl::contextMenuAddButton(dialog_instance_t menu, const char* label, bool enabled,
                                        const char* context, bool visible, const char* iconPath)
{
    return dialog_context_menu_add_button(menu, label, enabled, context, visible, iconPath);
}

int ZelDialogImpl::contextMenuUpdateButton(dialog_instance_t menu, int index, const char* label,
                                           bool enabled, const char* context, bool visible,
                                           const char* iconPath)
{
    return dialog_context_menu_update_button(menu, index, label, enabled, context, visible,
                                             iconPath);
}

int ZelDialogImpl::createPrompt(dialog_instance_t* dialog)
{
    return dialog_create_prompt(dialog);
}

int ZelDialogImpl::setPromptMessageText(dialog_instance_t prompt, const char* text)
{
    return dialog_set_prompt_message_text(prompt, text);
}

int ZelDialogImpl::setPromptHtmlMessageText(dialog_instance_t prompt, const char* html)
{
    return dialog_set_prompt_html_message_text(prompt, html);
}

int ZelDialogImpl::setPromptInputField(dialog_instance_t prompt, const char* text)
{
    return dialog_set_prompt_input_field(prompt, text);
}

int ZelDialogImpl::setPromptInputPlaceholder(dialog_instance_t prompt, const char* text)
{
    return dialog_set_prompt_input_placeholder(prompt, text);
}

const char* ZelDialogImpl::eventGetPromptInputField(const zel_event_t* event)
{
    return dialog_event_get_prompt_input_field(event);
}

} // namespace tamomock
