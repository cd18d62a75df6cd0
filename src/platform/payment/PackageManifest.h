// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_PLATFORM_PAYMENT_PACKAGEMANIFEST_H
#define TAMO_PLATFORM_PAYMENT_PACKAGEMANIFEST_H

#include <QtCore/QByteArray>

#include <string_view>

namespace tamo {
namespace platform {

/**
 * The application's package manifest: lines of a key, a colon, one character (a space) and a value.
 * "Application-Name" is the last line that is looked at.
 */
class PackageManifest
{
public:
    /**
     * Reads the manifest of the application that this process is.
     *
     * @return the package's name and id, joined by a point
     * @throws tamo::Exception where it cannot be read, or lacks one of them
     */
    static QByteArray readApplicationId();

    /** As readApplicationId(), out of a manifest's text. */
    static QByteArray applicationId(std::string_view text);
};

} // namespace platform
} // namespace tamo

#endif
