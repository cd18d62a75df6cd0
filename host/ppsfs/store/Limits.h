// SPDX-License-Identifier: Apache-2.0
#ifndef PPSFS_LIMITS_H
#define PPSFS_LIMITS_H

#include <cstddef>

/** The bounds that docs/pps.md promises. Sizes are in bytes. */
namespace ppsfs::limits {

/**
 * The longest text: of an object, of a write and of a message. The kernel hands over at most 256
 * pages at once, and a buffer that begins inside a page spends one of them on that.
 */
constexpr std::size_t TextSize = std::size_t{255} * 4096;

/** The longest name in a directory, options included. */
constexpr std::size_t NameSize = 255;

/** What one client may leave unread at the server, and the server at one client. */
constexpr std::size_t QueuedMessages = 128;
constexpr std::size_t QueuedBytes = std::size_t{4} << 20;

/** What all clients together, gone ones included, may leave unread at the server. */
constexpr std::size_t InboxMessages = std::size_t{128} << 10;
constexpr std::size_t InboxBytes = std::size_t{64} << 20;

} // namespace ppsfs::limits

#endif
