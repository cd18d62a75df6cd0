// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_CORE_APPLICATIONPRIVATE_H
#define TAMO_CORE_APPLICATIONPRIVATE_H

namespace tamo {

class Application;

/** An Application's private part. */
class ApplicationPrivate
{
public:
    explicit ApplicationPrivate(Application* application) : q(application) {}
    virtual ~ApplicationPrivate() = default;

    Application* const q;
};

} // namespace tamo

#endif
