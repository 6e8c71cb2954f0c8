#pragma once

#include <kelutv/Audio.h>

namespace kelutv::test {

inline Audio& audio() { return *Audio::instance(); }

} // namespace kelutv::test
