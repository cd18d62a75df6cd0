// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOMOCK_SCREENAPIIMPL_H
#define TAMOMOCK_SCREENAPIIMPL_H

#include <tamo/export.h>
#include <tamomock/ScreenApi.h>

namespace tamomock {

/**
 * The default ScreenApi: each operation calls the function that it is named after.
 *
 * @since 0.1
 */
class TAMO_EXPORT ScreenApiImpl : public ScreenApi
{
public:
    ~ScreenApiImpl() override;

    int createContext(screen_context_t* context, int flags) override;
    int destroyContext(screen_context_t context) override;
    int getContextPropertyIv(screen_context_t context, int name, int* values) override;
    int getContextPropertyPv(screen_context_t context, int name, void** values) override;
    int getDisplayPropertyIv(screen_display_t display, int name, int* values) override;
    int getDisplayPropertyCv(screen_display_t display, int name, int length, char* value) override;
    int getEventPropertyCv(screen_event_t event, int name, int length, char* value) override;
    int getEventPropertyIv(screen_event_t event, int name, int* values) override;
    int getEventPropertyLlv(screen_event_t event, int name, long long* values) override;
    int getEventPropertyPv(screen_event_t event, int name, void** values) override;
};

} // namespace tamomock

#endif
