/* SPDX-License-Identifier: Apache-2.0 */
/* The interface from C. */
#include <zel/screen.h>

#include <errno.h>
#include <string.h>

int main(void)
{
    screen_context_t context = NULL;
    int count = 0;
    void* display = NULL;
    char name[SCREEN_DISPLAY_NAME_SIZE];
    if (screen_create_context(&context, SCREEN_APPLICATION_CONTEXT) != 0)
        return 1;
    if (screen_get_context_property_iv(context, SCREEN_PROPERTY_DISPLAY_COUNT, &count) != 0)
        return 2;
    if (count != 1)
        return 3;
    if (screen_get_context_property_pv(context, SCREEN_PROPERTY_DISPLAYS, &display) != 0)
        return 4;
    if (screen_get_display_property_cv((screen_display_t)display, SCREEN_PROPERTY_ID_STRING,
                                       SCREEN_DISPLAY_NAME_SIZE, name) != 0)
        return 5;
    if (strcmp(name, "Built-in display") != 0)
        return 6;
    if (screen_get_domain() <= 0)
        return 7;
    errno = 0;
    if (screen_event_get_event(NULL) != NULL || errno != EINVAL)
        return 8;
    return screen_destroy_context(context) == 0 ? 0 : 9;
}
