#include "simulator/television/Notice.h"

namespace kelutv::simulator {

std::string payloadOf(std::initializer_list<std::int32_t> words) {
    return {reinterpret_cast<const char*>(words.begin()), words.size() * sizeof(std::int32_t)};
}

} // namespace kelutv::simulator
