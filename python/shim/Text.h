#pragma once

#include <string>

namespace kelutv::python {

/** Copies a text and the zero behind it, as much as there is room for. */
inline void store(const std::string& text, char* to, unsigned int room) {
    if (room > 0) {
        to[text.copy(to, room - 1)] = '\0';
    }
}

} // namespace kelutv::python
