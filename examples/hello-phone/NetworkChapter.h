// SPDX-License-Identifier: Apache-2.0
#ifndef HELLO_PHONE_NETWORKCHAPTER_H
#define HELLO_PHONE_NETWORKCHAPTER_H

/** Reports whether the world can be reached: `network: connected`. */
class NetworkChapter
{
public:
    NetworkChapter();
};

#endif
