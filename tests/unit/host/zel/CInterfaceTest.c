/* SPDX-License-Identifier: Apache-2.0 */
/* The interface as a C program uses it: an event there and back. */
#include <zel/deviceinfo.h>
#include <zel/navigator.h>
#include <zel/zel.h>

#include <stdio.h>

static int completed;

static void complete(zel_event_t* event)
{
    completed += zel_event_get_code(event);
}

static int carry(void)
{
    zel_event_payload_t payload = {1, 2, 3};
    zel_event_t* event = NULL;
    const int domain = zel_register_domain();
    if (zel_event_create(&event, domain, 4, &payload, complete) != 0)
        return 1;
    if (zel_push_event(event) != 0) {
        zel_event_destroy(event);
        return 2;
    }
    if (zel_get_event(&event, -1) != 0 || zel_event_get_domain(event) != domain ||
        zel_event_get_payload(event)->data3 != 3)
        return 3;
    return navigator_event_get_data(event) == NULL ? 0 : 4;
}

int main(void)
{
    int result;
    deviceinfo_data_t* data = NULL;
    deviceinfo_free_data(&data);
    if (zel_initialize() != 0)
        return 10;
    result = carry();
    if (zel_shutdown() != 0)
        return 11;
    if (result == 0 && completed != 4)
        result = 5;
    if (result != 0)
        fprintf(stderr, "failed at %d\n", result);
    return result;
}
