#include "Figures.h"

#include <cstdio>

namespace kelutv::bench {

void printFigure(const std::string& path, double value) {
    std::printf("%s %.6g\n", path.c_str(), value);
    std::fflush(stdout);
}

} // namespace kelutv::bench
