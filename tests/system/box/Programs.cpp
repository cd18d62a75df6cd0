// SPDX-License-Identifier: Apache-2.0
#include "Programs.h"

#include "Process.h"

#include <stdlib.h>

#include <cstdio>
#include <filesystem>

namespace boxtest {

namespace {

namespace fs = std::filesystem;

// The build tree, laid out like an installation.
std::string root = TAMO_TEST_ROOT;

bool isWithinReachOfAll()
{
    for (const User user : users()) {
        Process attempt({Programs::tamoBox(), "--help"}, user);
        if (attempt.wait() != 0)
            return false;
    }
    return true;
}

} // namespace

Programs::Programs()
{
    if (isWithinReachOfAll())
        return;
    char directory[] = "/tmp/tamo-test-XXXXXX";
    if (mkdtemp(directory) == nullptr) {
        std::perror(directory);
        return;
    }
    m_copy = directory;
    fs::permissions(m_copy, fs::perms(0755));
    for (const char* part : {TAMO_TEST_BIN, TAMO_TEST_LIB, TAMO_TEST_LIBEXEC})
        fs::copy(fs::path(root) / part, fs::path(m_copy) / part,
                 fs::copy_options::recursive | fs::copy_options::copy_symlinks);
    fs::create_directory(m_copy + "/tests");
    for (const auto& entry : fs::directory_iterator(root + "/tests"))
        if (entry.path().filename().string().rfind("tamo-test-", 0) == 0)
            fs::copy(entry, m_copy + "/tests");
    root = m_copy;
}

Programs::~Programs()
{
    if (!m_copy.empty())
        fs::remove_all(m_copy);
}

std::string Programs::tamoBox()
{
    return root + '/' + TAMO_TEST_BIN + "/tamo-box";
}

std::string Programs::helper(const std::string& name)
{
    return root + "/tests/" + name;
}

} // namespace boxtest
