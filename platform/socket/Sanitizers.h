#pragma once

namespace kq {

/** True in a build with a sanitizer of addresses or threads, which needs more stack and memory. */
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr bool kSanitized = true;
#else
constexpr bool kSanitized = false;
#endif

} // namespace kq
