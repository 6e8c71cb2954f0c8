#pragma once

#include <cstdio>
#include <utility>
#include <vector>

namespace kelutv::tool {

/**
 * Takes standard output and standard error away from the client library and the platform's, whatever thread they print
 * from: what they print leads nowhere, or to the tool's standard error when a log is asked for (KQLOG_LEVEL).
 *
 * To be called once, before anything is printed and any thread is started. Until then the streams below are those of
 * the process.
 */
void keepStreamsApart();

/** The tool's own standard output and standard error. */
std::FILE* ownOutput();
std::FILE* ownError();

/** Standard output and standard error of a program that is started from here, each with what it is a copy of. */
std::vector<std::pair<int, int>> ownDescriptors();

} // namespace kelutv::tool
