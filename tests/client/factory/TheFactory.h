#pragma once

#include <kelutv/Factory.h>

namespace kelutv::test {

inline Factory& factory() { return *Factory::instance(); }

} // namespace kelutv::test
