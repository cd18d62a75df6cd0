// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOMOCK_SCREENAPI_H
#define TAMOMOCK_SCREENAPI_H

#include <tamo/export.h>

#include <screen/screen.h>

namespace tamomock {

/**
 * The screen library, as the library calls it: one operation for each function of
 * `<screen/screen.h>`, named after it without `screen_`. What a function takes, returns and does is
 * said there; an operation of a substitute keeps to it as far as the code under test looks.
 *
 * One object serves the whole process. Whoever calls the screen library keeps the one that is
 * current when it is constructed, so a substitute is installed before the objects under test are
 * made, and cleared after they are gone.
 *
 * @since 0.1
 */
class TAMO_EXPORT ScreenApi
{
public:
    /**
     * The current object. Where there is none, a ScreenApiImpl is made first, which is never
     * deleted. May be called from any thread, as setInstance() and clearInstance().
     */
    static ScreenApi* instance();

    /**
     * Makes an object the current one. It stays the caller's, who takes it back with
     * clearInstance() before deleting it.
     *
     * @throws tamo::Exception where there is a current one, be it the default, which stays; a line
     *         on standard output says so
     */
    static void setInstance(ScreenApi* instance);

    /** Takes an object back: there is no current one afterwards. Any other is left as it is. */
    static void clearInstance(ScreenApi* instance);

    ScreenApi() = default;
    ScreenApi(const ScreenApi&) = delete;
    ScreenApi& operator=(const ScreenApi&) = delete;
    virtual ~ScreenApi();

    virtual int createContext(screen_context_t* context, int flags) = 0;
    virtual int destroyContext(screen_context_t context) = 0;
    virtual int getContextPropertyIv(screen_context_t context, int name, int* values) = 0;
    virtual int getContextPropertyPv(screen_context_t context, int name, void** values) = 0;
    virtual int getDisplayPropertyIv(screen_display_t display, int name, int* values) = 0;
    virtual int getDisplayPropertyCv(screen_display_t display, int name, int length,
                                     char* value) = 0;
    virtual int getEventPropertyCv(screen_event_t event, int name, int length, char* value) = 0;
    virtual int getEventPropertyIv(screen_event_t event, int name, int* values) = 0;
    virtual int getEventPropertyLlv(screen_event_t event, int name, long long* values) = 0;
    virtual int getEventPropertyPv(screen_event_t event, int name, void** values) = 0;
};

} // namespace tamomock

#endif
