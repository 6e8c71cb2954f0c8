#include "simulator/ControlPipe.h"

#include <sys/stat.h>

#include <cerrno>
#include <fstream>
#include <system_error>
#include <utility>

namespace kelutv::test {

ControlPipe::ControlPipe(std::string path) : mPath(std::move(path)) {
    if (::mkfifo(mPath.c_str(), 0600) != 0) {
        throw std::system_error(errno, std::generic_category(), mPath);
    }
}

std::string ControlPipe::say(Simulator& simulator, const std::string& line) {
    // Lines are carried out in order: once the nonsense behind this one has been complained of, it is done with.
    const std::string mark = "mark" + std::to_string(++mLines);
    std::ofstream(mPath) << line << '\n' << mark << '\n';
    OutputFile& error = simulator.process().error();
    if (!error.waitForLine('\'' + mark + '\'')) {
        throw std::runtime_error("the simulator does not read its control pipe: " + error.text());
    }
    const std::string text = error.take();
    const std::string before = text.substr(0, text.find(mark));
    return before.substr(0, before.rfind('\n') + 1);
}

} // namespace kelutv::test
