// SPDX-License-Identifier: Apache-2.0
#include "Fork.h"

#include "ChannelTable.h"
#include "ThreadState.h"

#include <pthread.h>

namespace zel {
namespace {

void prepare()
{
    ChannelTable::instance().lockAll();
}

void resumeParent()
{
    ChannelTable::instance().unlockAll();
}

void resumeChild()
{
    ChannelTable::instance().clear();
    ChannelTable::instance().unlockAll();
    ThreadState::discardAfterFork();
}

} // namespace

bool watchForks()
{
    static const bool isWatching = pthread_atfork(prepare, resumeParent, resumeChild) == 0;
    return isWatching;
}

} // namespace zel
