#pragma once

namespace kelutv::test {

/** What outputs hold before a call, and no service gives. */
constexpr int kUntouched = 0x5A5A5A5A;

} // namespace kelutv::test
