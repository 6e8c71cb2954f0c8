#pragma once

#include <kelutv/Picture.h>

namespace kelutv::test {

inline Picture& picture() { return *Picture::instance(); }

} // namespace kelutv::test
