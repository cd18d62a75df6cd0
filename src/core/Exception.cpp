// SPDX-License-Identifier: Apache-2.0
#include <tamo/Exception.h>

namespace tamo {

// Out of line, so that the type information exists once, in the library, and a handler in another
// module recognises what is thrown here.
Exception::~Exception() = default;

} // namespace tamo
