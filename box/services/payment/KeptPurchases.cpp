// SPDX-License-Identifier: Apache-2.0
#include "KeptPurchases.h"

#include "common/Descriptor.h"
#include "common/DirectorySync.h"
#include "common/Failure.h"
#include "services/Complaints.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <optional>

namespace tamobox {

namespace {

/** The whole of a file; nothing where there is none. */
std::optional<std::string> contentOf(const std::string& path)
{
    // Not blocking: somebody may have put a pipe there.
    const Descriptor file(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    if (!file && errno == ENOENT)
        return std::nullopt;
    if (!file)
        throw systemFailure("cannot open " + path);
    struct stat status = {};
    if (fstat(file.get(), &status) == -1 || !S_ISREG(status.st_mode))
        throw Failure(path + " is no file");
    std::string content;
    std::array<char, 65536> buffer;
    for (;;) {
        const ssize_t size = read(file.get(), buffer.data(), buffer.size());
        if (size == -1)
            throw systemFailure("cannot read " + path);
        if (size == 0)
            return content;
        content.append(buffer.data(), static_cast<std::size_t>(size));
    }
}

void writeAll(const Descriptor& file, const std::string& path, const std::string& text)
{
    for (std::size_t done = 0; done < text.size();) {
        const ssize_t size = write(file.get(), text.data() + done, text.size() - done);
        if (size == -1)
            throw systemFailure("cannot write " + path);
        done += static_cast<std::size_t>(size);
    }
    if (fsync(file.get()) == -1)
        throw systemFailure("cannot write " + path);
}

} // namespace

KeptPurchases::KeptPurchases(std::string directory)
    : m_directory(std::move(directory)), m_path(m_directory + "/payments.json")
{
}

PaymentState KeptPurchases::load(std::string& trouble)
{
    const std::optional<std::string> text = contentOf(m_path);
    if (!text)
        return {};
    try {
        return stateFromText(*text);
    } catch (const Failure& failure) {
        trouble = m_path + " cannot be read: " + failure.what() + "; it is now " + setAside() +
                  ", and what was bought is not known";
        return {};
    }
}

void KeptPurchases::savePurchase(const PaymentState& state, const Purchase& purchase)
{
    const std::string text = stateToText(state);
    if (text.size() > longestFile && !purchase.canceledEnd)
        throw Failure("there is no room for more purchases: " + m_path + " would be longer than " +
                      std::to_string(longestFile) + " bytes");
    save(text);
}

void KeptPurchases::saveClock(const PaymentState& state)
{
    save(stateToText(state));
}

void KeptPurchases::save(const std::string& text)
{
    const std::string path = m_path + ".new";
    unlink(path.c_str()); // of a service that was killed; never write through a link
    const Descriptor file(
        open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW, 0600));
    if (!file)
        throw systemFailure("cannot create " + path);
    writeAll(file, path, text);
    if (rename(path.c_str(), m_path.c_str()) == -1)
        throw systemFailure("cannot replace " + m_path);
    // Whether the directory is on the disk yet decides which of the two is found after a crash of
    // the machine. Nothing else depends on it, so the change counts.
    try {
        syncDirectory(m_directory);
    } catch (const Failure& failure) {
        Complaints::write(std::string("a crash of the machine may undo the last change: ") +
                          failure.what());
    }
}

std::string KeptPurchases::setAside() const
{
    for (int i = 1;; ++i) {
        const std::string path = m_path + ".damaged-" + std::to_string(i);
        // link() does not replace what is there, as rename() would.
        if (link(m_path.c_str(), path.c_str()) == -1) {
            if (errno == EEXIST)
                continue;
            throw systemFailure("cannot keep " + m_path + " aside");
        }
        if (unlink(m_path.c_str()) == -1)
            throw systemFailure("cannot keep " + m_path + " aside");
        return path;
    }
}

} // namespace tamobox
