#include "tools/kelutv/calls/Thunks.h"

#include <cstddef>

namespace kelutv::tool {

Thunk thunkOf(const wire::Function& function) {
    return allThunks()[static_cast<std::size_t>(&function - wire::allFunctions().begin())];
}

} // namespace kelutv::tool
