// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_BENCH_PPSTRANSPORT_H
#define TAMO_BENCH_PPSTRANSPORT_H

#include "Transport.h"

namespace tamobench {

/** An object below `/pps`: published by `write`, read by `read` after epoll. */
class PpsTransport : public Transport
{
public:
    /** Creates the object, unpublished, and the directory that it lies in. */
    explicit PpsTransport(std::string path);

    std::string name() const override { return "/pps"; }
    std::unique_ptr<Publisher> openPublisher() override;
    std::unique_ptr<Subscription> openSubscription() override;

private:
    std::string m_path;
};

} // namespace tamobench

#endif
