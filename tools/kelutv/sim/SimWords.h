#pragma once

#include <string>
#include <vector>

namespace kelutv::tool {

/**
 * What the word that is begun may become in a line for the simulator: verbs and what stands behind them. Sources,
 * signals and CEC devices are those of the simulator that runs; without one the sources are those of the interface.
 *
 * @param words the words before it, the verb first
 * @return whole words, in any order; not all of them begin as the word does
 */
std::vector<std::string> simWords(const std::vector<std::string>& words, const std::string& begun);

} // namespace kelutv::tool
