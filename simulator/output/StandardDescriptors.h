#pragma once

namespace kelutv::simulator {

/**
 * Opens what is closed of standard input, output and error, on `/dev/null`: else a file would have its number, and get
 * the lines that are printed. To be called before anything is opened.
 */
void openStandardDescriptors();

} // namespace kelutv::simulator
