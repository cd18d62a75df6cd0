// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOMOCK_ZELLOCALEIMPL_H
#define TAMOMOCK_ZELLOCALEIMPL_H

#include <tamo/export.h>
#include <tamomock/ZelLocale.h>

namespace tamomock {

/**
 * The default ZelLocale: each operation calls the function that it is named after.
 *
 * @since 0.1
 */
class TAMO_EXPORT ZelLocaleImpl : public ZelLocale
{
public:
    ~ZelLocaleImpl() override;

    int requestEvents(int flags) override;
    int getDomain() override;
    int get(char** language, char** country) override;
    const char* eventGetLanguage(const zel_event_t* event) override;
    const char* eventGetCountry(const zel_event_t* event) override;
};

} // namespace tamomock

#endif
