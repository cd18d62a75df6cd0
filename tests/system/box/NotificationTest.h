// SPDX-License-Identifier: Apache-2.0
#ifndef BOXTEST_NOTIFICATIONTEST_H
#define BOXTEST_NOTIFICATIONTEST_H

#include "ClientTest.h"

#include <signal.h>

namespace boxtest {

inline const std::vector<std::string> listAsJson = {"notification", "list", "--json"};

/** Tests of the notification service. */
class NotificationTest : public ClientTest
{
protected:
    NotificationTest() : ClientTest("services/notification/control") {}

    /** A request that posts a notification; `members` are those of `dat` beside the id. */
    static std::string notify(const std::string& id, const std::string& members)
    {
        return request("Notify", "{\"id\":\"" + id + "\"," + members + '}');
    }

    /** What is listed. */
    std::string json(const Box& box) const { return in(box, listAsJson).output; }
};

} // namespace boxtest

#endif
