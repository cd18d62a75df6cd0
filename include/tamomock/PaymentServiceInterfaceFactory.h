// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOMOCK_PAYMENTSERVICEINTERFACEFACTORY_H
#define TAMOMOCK_PAYMENTSERVICEINTERFACEFACTORY_H

#include <tamo/export.h>

#include <functional>

namespace tamomock {

class PaymentServiceInterface;

/**
 * Where `tamo::platform::PaymentService` gets its back ends from. A test, or a host, installs a
 * creator of its own before the service is first used, or before it sets another mode:
 *
 *     class Till : public tamomock::PaymentServiceInterface { ... };
 *
 *     tamomock::PaymentServiceInterfaceFactory::setCreator([](int) { return new Till; });
 *     tamo::platform::PaymentService::getInstance()->requestPrice("sword", ...); // asks the Till
 *
 * A back end that the service has already is not replaced by that.
 *
 * Everything may be called from any thread.
 *
 * @since 0.1
 */
class TAMO_EXPORT PaymentServiceInterfaceFactory
{
public:
    /**
     * Makes a back end for a mode, without a parent: it becomes the service's own. Null where there
     * is none for it. It is called in the thread that makes the service or sets its mode, with a
     * lock of the service's held: it does not use the service. What it throws comes out of that
     * operation.
     */
    using Creator = std::function<PaymentServiceInterface*(int mode)>;

    /** A new back end, of the installed creator or else createDefault()'s; the caller's own. */
    static PaymentServiceInterface* create(int mode);

    /**
     * A new back end of the library's: test mode for 0, the payment system for 1, null otherwise.
     * It is the caller's own, and lives in the calling thread.
     *
     * @throws tamo::Exception for 1, where the payment system's object cannot be opened, or the
     *         package manifest cannot be read or lacks the package's name or id
     */
    static PaymentServiceInterface* createDefault(int mode);

    /** Installs a creator for the back ends that are made from now on; an empty one as
     * resetCreator(). */
    static void setCreator(const Creator& creator);

    /** Has back ends made by createDefault() again. */
    static void resetCreator();
};

} // namespace tamomock

#endif
