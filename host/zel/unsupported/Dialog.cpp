// SPDX-License-Identifier: Apache-2.0
#include "Unsupported.h"

#include "core/Domain.h"

#include <zel/dialog.h>

int dialog_get_domain()
{
    return zel::number(zel::Domain::Dialog);
}

ZEL_UNSUPPORTED(-1, int dialog_request_events(int))
ZEL_UNSUPPORTED(-1, int dialog_show(dialog_instance_t))
ZEL_UNSUPPORTED(-1, int dialog_update(dialog_instance_t))
ZEL_UNSUPPORTED(-1, int dialog_cancel(dialog_instance_t))
ZEL_UNSUPPORTED(-1, int dialog_destroy(dialog_instance_t))
ZEL_UNSUPPORTED(-1, int dialog_set_size(dialog_instance_t, dialog_size_t))
ZEL_UNSUPPORTED(-1, int dialog_set_position(dialog_instance_t, dialog_position_t))
ZEL_UNSUPPORTED(-1, int dialog_set_background_alpha(dialog_instance_t, double))
ZEL_UNSUPPORTED(-1, int dialog_set_cover_sensitivity(dialog_instance_t, bool))
ZEL_UNSUPPORTED(-1, int dialog_set_title_text(dialog_instance_t, const char*))
ZEL_UNSUPPORTED(-1, int dialog_set_html_title_text(dialog_instance_t, const char*))
ZEL_UNSUPPORTED(-1, int dialog_set_group_id(dialog_instance_t, const char*))
ZEL_UNSUPPORTED(-1, int dialog_set_cancel_required(dialog_instance_t, bool))
ZEL_UNSUPPORTED(-1, int dialog_set_default_button_index(dialog_instance_t, int))
ZEL_UNSUPPORTED(-1, int dialog_add_button(dialog_instance_t, const char*, bool, const char*, bool))
ZEL_UNSUPPORTED(-1, int dialog_update_button(dialog_instance_t, int, const char*, bool, const char*,
                                             bool))
ZEL_UNSUPPORTED(-1, int dialog_remove_button(dialog_instance_t, int))
ZEL_UNSUPPORTED(nullptr, dialog_instance_t dialog_event_get_dialog_instance(const zel_event_t*))
ZEL_UNSUPPORTED(-1, int dialog_event_get_selected_index(const zel_event_t*))
ZEL_UNSUPPORTED(nullptr, const char* dialog_event_get_selected_label(const zel_event_t*))
ZEL_UNSUPPORTED(nullptr, const char* dialog_event_get_selected_context(const zel_event_t*))
ZEL_UNSUPPORTED(-1, int dialog_create_alert(dialog_instance_t*))
ZEL_UNSUPPORTED(-1, int dialog_set_alert_message_text(dialog_instance_t, const char*))
ZEL_UNSUPPORTED(-1, int dialog_set_alert_html_message_text(dialog_instance_t, const char*))
ZEL_UNSUPPORTED(-1, int dialog_create_context_menu(dialog_instance_t*))
ZEL_UNSUPPORTED(-1, int dialog_set_context_menu_coordinates(dialog_instance_t, int, int))
ZEL_UNSUPPORTED(-1, int dialog_set_context_menu_width(dialog_instance_t, int))
ZEL_UNSUPPORTED(-1, int dialog_set_context_menu_height(dialog_instance_t, int))
ZEL_UNSUPPORTED(-1, int dialog_context_menu_add_button(dialog_instance_t, const char*, bool,
                                                       const char*, bool, const char*))
ZEL_UNSUPPORTED(-1, int dialog_context_menu_update_button(dialog_instance_t, int, const char*, bool,
                                                          const char*, bool, const char*))
ZEL_UNSUPPORTED(-1, int dialog_create_prompt(dialog_instance_t*))
ZEL_UNSUPPORTED(-1, int dialog_set_prompt_message_text(dialog_instance_t, const char*))
ZEL_UNSUPPORTED(-1, int dialog_set_prompt_html_message_text(dialog_instance_t, const char*))
ZEL_UNSUPPORTED(-1, int dialog_set_prompt_input_field(dialog_instance_t, const char*))
ZEL_UNSUPPORTED(-1, int dialog_set_prompt_input_placeholder(dialog_instance_t, const char*))
ZEL_UNSUPPORTED(nullptr, const char* dialog_event_get_prompt_input_field(const zel_event_t*))
