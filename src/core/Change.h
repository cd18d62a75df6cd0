// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_CORE_CHANGE_H
#define TAMO_CORE_CHANGE_H

namespace tamo::detail {

/** Sets a field. Returns whether that changes it: a null string becoming an empty one, for example,
 * does not, and yet is kept. */
template<typename Value>
bool change(Value& field, const Value& value)
{
    const bool changes = field != value;
    field = value;
    return changes;
}

} // namespace tamo::detail

#endif
