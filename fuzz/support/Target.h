#pragma once

#include <cstddef>
#include <cstdint>

/** Does with one input what the target is about; each target defines it. Everything wrong with it ends the process. */
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

/** Runs once before the first input. */
extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv);

namespace kelutv::fuzz {

/** Ends the process, as a crash does, unless what must hold does. */
void require(bool holds, const char* what);

/** Reads every byte, so that a sanitizer sees those that are out of bounds. */
void touch(const void* bytes, std::size_t length);

} // namespace kelutv::fuzz
