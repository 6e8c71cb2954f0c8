#include "torture/processes/ProcessMemory.h"

#include <fstream>
#include <stdexcept>
#include <string>

namespace kelutv::test {

std::size_t memoryOf(pid_t process) {
    std::ifstream status("/proc/" + std::to_string(process) + "/status");
    for (std::string word; status >> word;) {
        if (std::size_t size = 0; word == "RssAnon:" && status >> size) {
            return size;
        }
    }
    throw std::runtime_error("process " + std::to_string(process) + " tells no RssAnon");
}

} // namespace kelutv::test
