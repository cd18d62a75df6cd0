// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_EXCEPTION_H
#define TAMO_EXCEPTION_H

#include <tamo/export.h>

#include <exception>

namespace tamo {

/**
 * Thrown where the library's own machinery or a call to the platform fails. What throws, and when,
 * is said where it is declared.
 *
 * It carries no message: what() is the text of std::exception.
 *
 * @since 0.1
 */
class TAMO_EXPORT Exception : public std::exception
{
public:
    Exception() noexcept = default;
    Exception(const Exception&) noexcept = default;
    Exception& operator=(const Exception&) noexcept = default;
    ~Exception() override;
};

} // namespace tamo

#endif
