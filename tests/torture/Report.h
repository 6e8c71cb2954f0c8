#pragma once

namespace kelutv::test {

/** Writes a line of the torture's report to standard output, as printf does; `./check` shows these lines. */
__attribute__((__format__(printf, 1, 2))) void report(const char* format, ...);

} // namespace kelutv::test
