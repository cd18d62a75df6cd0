/* SPDX-License-Identifier: Apache-2.0 */
/**
 * @file
 * The dialogs: alerts, context menus and prompts that the platform shows for an application.
 *
 * What is in an event is asked for by its getters; texts are zero-terminated UTF-8 and valid as
 * long as the event; an event of another domain, or one without that part, gives the value that
 * is said to be "none", with `errno` EINVAL. Where a call fails nothing is written through its
 * arguments, unless it says otherwise. Texts that are passed are zero-terminated UTF-8 and
 * copied. A handle that is none (any more), a dialog of another kind than the function is for,
 * a value outside its range, a text that is not UTF-8, and NULL where it is not said to mean
 * something, is EINVAL; ENOMEM. On a platform without the service every function that can fail
 * fails with ENOTSUP, getters of events included; dialog_get_domain() never fails.
 */
#ifndef ZEL_DIALOG_H
#define ZEL_DIALOG_H

#include <zel/export.h>
#include <zel/zel.h>

#include <stdbool.h>

#ifdef __cplusplus
extern "C" {
#endif

/** The codes of the dialogs' events. */
enum {
    DIALOG_RESPONSE = 1 /**< with the dialog and what was selected: a dialog was answered */
};

/** A dialog: an opaque handle; NULL is none. */
typedef struct dialog_instance* dialog_instance_t;

/** How large a dialog is. */
typedef enum {
    DIALOG_SIZE_SMALL = 0,
    DIALOG_SIZE_MEDIUM = 1,
    DIALOG_SIZE_TALL = 2,
    DIALOG_SIZE_FULL = 3
} dialog_size_t;

/** Where on the screen a dialog is. */
typedef enum {
    DIALOG_POSITION_TOP_CENTER = 0,
    DIALOG_POSITION_MIDDLE_CENTER = 1,
    DIALOG_POSITION_BOTTOM_CENTER = 2
} dialog_position_t;

/**
 * Asks for the events of the dialogs, for the calling thread's active channel. Asking again for
 * the same channel changes nothing. The events stop with the channel.
 *
 * @param flags 0
 *
 * Errors: as zel_channel_create(); ENOENT (the service is not there).
 */
ZEL_EXPORT int dialog_request_events(int flags);

/** The domain of the dialogs; the same in every process and thread. Never fails. */
ZEL_EXPORT int dialog_get_domain(void);

/** Shows a dialog. Its answer comes to the channel that was active when it was created. */
ZEL_EXPORT int dialog_show(dialog_instance_t dialog);

/** Has what was set since the dialog was shown take effect, all of it at once. */
ZEL_EXPORT int dialog_update(dialog_instance_t dialog);

/** Takes a dialog that is shown away; no answer comes. It can be shown again. */
ZEL_EXPORT int dialog_cancel(dialog_instance_t dialog);

/** Cancels a dialog and frees it. */
ZEL_EXPORT int dialog_destroy(dialog_instance_t dialog);

/** Sets how large the dialog is. DIALOG_SIZE_SMALL at first. */
ZEL_EXPORT int dialog_set_size(dialog_instance_t dialog, dialog_size_t size);

/** Sets where the dialog is. DIALOG_POSITION_MIDDLE_CENTER at first. */
ZEL_EXPORT int dialog_set_position(dialog_instance_t dialog, dialog_position_t position);

/** Sets how much what is behind the dialog is dimmed: 0, not at all, to 1, black. 0.5 at first. */
ZEL_EXPORT int dialog_set_background_alpha(dialog_instance_t dialog, double alpha);

/** Sets whether a touch beside the dialog cancels it. False at first. */
ZEL_EXPORT int dialog_set_cover_sensitivity(dialog_instance_t dialog, bool sensitive);

/** Sets the title. NULL: none. */
ZEL_EXPORT int dialog_set_title_text(dialog_instance_t dialog, const char* text);

/** Sets the title, as HTML. NULL: none. */
ZEL_EXPORT int dialog_set_html_title_text(dialog_instance_t dialog, const char* html);

/** Sets the window group that the dialog belongs to. NULL: none. */
ZEL_EXPORT int dialog_set_group_id(dialog_instance_t dialog, const char* group_id);

/** Sets whether the application is to be told that the dialog was cancelled. False at first. */
ZEL_EXPORT int dialog_set_cancel_required(dialog_instance_t dialog, bool required);

/**
 * Sets the button that is meant where the user names none.
 *
 * @param index counted from 0 in the order of adding; -1: none
 */
ZEL_EXPORT int dialog_set_default_button_index(dialog_instance_t dialog, int index);

/**
 * Adds a button after the others.
 *
 * @param label what is written on it
 * @param context the application's own, which the answer carries; NULL: none
 */
ZEL_EXPORT int dialog_add_button(dialog_instance_t dialog, const char* label, bool enabled,
                                 const char* context, bool visible);

/**
 * Sets all of a button anew. Arguments as for dialog_add_button().
 *
 * @param index counted from 0; EINVAL where there is no such button
 */
ZEL_EXPORT int dialog_update_button(dialog_instance_t dialog, int index, const char* label,
                                    bool enabled, const char* context, bool visible);

/**
 * Removes a button; those after it move up.
 *
 * @param index as for dialog_update_button()
 */
ZEL_EXPORT int dialog_remove_button(dialog_instance_t dialog, int index);

/** The dialog that was answered. None: NULL. */
ZEL_EXPORT dialog_instance_t dialog_event_get_dialog_instance(const zel_event_t* event);

/** The button that was selected, counted from 0. None (it was cancelled): -1. */
ZEL_EXPORT int dialog_event_get_selected_index(const zel_event_t* event);

/** The label of the selected button. None: NULL. */
ZEL_EXPORT const char* dialog_event_get_selected_label(const zel_event_t* event);

/** The context of the selected button. None: NULL. */
ZEL_EXPORT const char* dialog_event_get_selected_context(const zel_event_t* event);

/**
 * Makes a dialog with a message and buttons.
 *
 * @param dialog to be freed with dialog_destroy()
 *
 * Errors: as zel_channel_create(); EINVAL; ENOMEM.
 */
ZEL_EXPORT int dialog_create_alert(dialog_instance_t* dialog);

/** Sets an alert's message. NULL: none. */
ZEL_EXPORT int dialog_set_alert_message_text(dialog_instance_t alert, const char* text);

/** Sets an alert's message, as HTML. NULL: none. */
ZEL_EXPORT int dialog_set_alert_html_message_text(dialog_instance_t alert, const char* html);

/**
 * Makes a menu that opens at a place of the screen.
 *
 * @param dialog to be freed with dialog_destroy()
 *
 * Errors: as zel_channel_create(); EINVAL; ENOMEM.
 */
ZEL_EXPORT int dialog_create_context_menu(dialog_instance_t* dialog);

/** Sets where the menu opens, in pixels from the upper left corner of the window group. */
ZEL_EXPORT int dialog_set_context_menu_coordinates(dialog_instance_t menu, int x, int y);

/** Sets the menu's width in pixels, above 0. */
ZEL_EXPORT int dialog_set_context_menu_width(dialog_instance_t menu, int width);

/** Sets the menu's height in pixels, above 0. */
ZEL_EXPORT int dialog_set_context_menu_height(dialog_instance_t menu, int height);

/**
 * Adds a button after the others. Arguments as for dialog_add_button().
 *
 * @param icon_path a picture's file; NULL: none
 */
ZEL_EXPORT int dialog_context_menu_add_button(dialog_instance_t menu, const char* label,
                                              bool enabled, const char* context, bool visible,
                                              const char* icon_path);

/**
 * Sets all of a button anew. Arguments as for dialog_update_button() and
 * dialog_context_menu_add_button().
 */
ZEL_EXPORT int dialog_context_menu_update_button(dialog_instance_t menu, int index,
                                                 const char* label, bool enabled,
                                                 const char* context, bool visible,
                                                 const char* icon_path);

/**
 * Makes a dialog with a message, a field for a text, and buttons.
 *
 * @param dialog to be freed with dialog_destroy()
 *
 * Errors: as zel_channel_create(); EINVAL; ENOMEM.
 */
ZEL_EXPORT int dialog_create_prompt(dialog_instance_t* dialog);

/** Sets a prompt's message. NULL: none. */
ZEL_EXPORT int dialog_set_prompt_message_text(dialog_instance_t prompt, const char* text);

/** Sets a prompt's message, as HTML. NULL: none. */
ZEL_EXPORT int dialog_set_prompt_html_message_text(dialog_instance_t prompt, const char* html);

/** Sets what is in the field at first. NULL: nothing. */
ZEL_EXPORT int dialog_set_prompt_input_field(dialog_instance_t prompt, const char* text);

/** Sets what is shown in the field while it is empty. NULL: nothing. */
ZEL_EXPORT int dialog_set_prompt_input_placeholder(dialog_instance_t prompt, const char* text);

/** What was in the field when the prompt was answered. None: NULL. */
ZEL_EXPORT const char* dialog_event_get_prompt_input_field(const zel_event_t* event);

#ifdef __cplusplus
}
#endif

#endif
