// SPDX-License-Identifier: Apache-2.0
#ifndef ZEL_CORE_DOMAIN_H
#define ZEL_CORE_DOMAIN_H

namespace zel {

/** The domains of the services: the same numbers in every process. A new one is added at the end.
 */
enum class Domain : int {
    AudioDevice = 1,
    AudioMixer,
    Clock,
    Dialog,
    Geolocation,
    Led,
    Locale,
    MmRenderer,
    Navigator,
    NetStatus,
    Orientation,
    PaymentService,
    Screen,
    Sensor,
    VirtualKeyboard,
    End
};

/** The number of a service's domain, as the C functions have it. */
constexpr int number(Domain domain)
{
    return static_cast<int>(domain);
}

/** Whether a number is a service's domain, or one that registerDomain() returned. Any thread. */
bool isDomain(int domain);

/** A new domain's number, or -1 where there are no more. Any thread. */
int registerDomain();

} // namespace zel

#endif
