// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOMOCK_ZELLOCALE_H
#define TAMOMOCK_ZELLOCALE_H

#include <tamo/export.h>
#include <tamomock/ZelEventProvider.h>

#include <zel/locale.h>

namespace tamomock {

/**
 * The locale, as the library calls it: one operation for each function of `<zel/locale.h>`, named
 * after it without `locale_`, after those of ZelEventProvider. What a function takes, returns and
 * does is said there; an operation of a substitute keeps to it as far as the code under test looks.
 *
 * @since 0.1
 */
class TAMO_EXPORT ZelLocale : public ZelEventProvider
{
public:
    ~ZelLocale() override;

    virtual int get(char** language, char** country) = 0;
    virtual const char* eventGetLanguage(const zel_event_t* event) = 0;
    virtual const char* eventGetCountry(const zel_event_t* event) = 0;
};

} // namespace tamomock

#endif
