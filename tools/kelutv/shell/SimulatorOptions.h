#pragma once

#include <string>
#include <vector>

namespace kelutv::tool {

/**
 * What the word that is begun may become in a command line of the simulator, by what its help says.
 *
 * @param program the simulator, looked for as a shell does
 * @param words the words before it, without the program's name
 * @return whole words, in any order; not all of them begin as the word does; none when there is no such program
 */
std::vector<std::string> simulatorOptions(const std::string& program, const std::vector<std::string>& words,
                                          const std::string& begun);

} // namespace kelutv::tool
