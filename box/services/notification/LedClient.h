// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_LEDCLIENT_H
#define TAMOBOX_LEDCLIENT_H

#include "common/Timer.h"
#include "pps/MessageWriter.h"
#include "pps/ObjectFile.h"
#include "services/led/LedColor.h"

#include <memory>
#include <optional>
#include <string>

namespace tamobox {

/** What the LED is to flash, until something else is wanted. */
struct LedWish
{
    std::string id;
    LedColor color = LedColor::None;

    bool operator==(const LedWish& other) const { return id == other.id && color == other.color; }
};

/** Has the LED service flash, as any application does. */
class LedClient
{
public:
    /** @param loop must outlive the object */
    explicit LedClient(EventLoop& loop);
    ~LedClient();
    LedClient(const LedClient&) = delete;
    LedClient& operator=(const LedClient&) = delete;

    /** Has one wish fulfilled instead of the one before; nothing: none. While the service is being
     * started again it is asked again. Throws ObjectFailure where `/pps` has ended. */
    void show(const std::optional<LedWish>& wish);

private:
    void ask();
    void open();
    void beginAnew();
    void send(const char* message, const std::string& id,
              const std::optional<LedColor>& color = std::nullopt);

    EventLoop& m_loop;
    Timer m_retry;
    std::unique_ptr<ObjectFile> m_mailbox;
    std::optional<LedWish> m_wanted;
    std::optional<LedWish> m_asked; // through the mailbox as it is open
};

} // namespace tamobox

#endif
