#pragma once

#include <dlfcn.h>

namespace kelutv::interposition {

/** The definition of a function behind the one here, by its mangled name; null where the dynamic linker finds none. */
template <typename Function> Function next(const char* symbol) {
    return reinterpret_cast<Function>(::dlsym(RTLD_NEXT, symbol));
}

} // namespace kelutv::interposition
