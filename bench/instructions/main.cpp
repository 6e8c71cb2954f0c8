// Calls every shape of operation in two numbers of calls, whose difference is what a call costs. Run by callgrind, it
// leaves one dump for each number, called by the shape and the number.

#include "ShapeService.h"
#include "Shapes.h"

#include <kelutv/link/TVBaseClient.h>
#include <valgrind/callgrind.h>

#include <cstdio>
#include <string>

namespace {

using namespace kelutv::bench;

constexpr int kFew = 50;
constexpr int kMany = 150;

/** False when a call gave another answer than it should. */
bool callAndDump(const Shape& shape, int calls) {
    const std::string name = shape.name + (' ' + std::to_string(calls));
    CALLGRIND_ZERO_STATS;
    for (int call = 0; call < calls; ++call) {
        if (!shape.call()) {
            return false;
        }
    }
    CALLGRIND_DUMP_STATS_AT(name.c_str());
    return true;
}

int callEveryShape() {
    if (android::TVBaseClient::self()->getBpTvbaseService() == nullptr) {
        std::fputs("kelutv-shapes: there is no service\n", stderr);
        return 1;
    }
    for (const Shape& shape : everyShape()) {
        // What happens in the first call only is no part of a call's cost.
        if (!shape.call() || !callAndDump(shape, kFew) || !callAndDump(shape, kMany)) {
            std::fprintf(stderr, "kelutv-shapes: %s gave another answer than it should\n", shape.name);
            return 1;
        }
    }
    return 0;
}

} // namespace

int main(int argc, char** argv) {
    const std::string task = argc == 2 ? argv[1] : "";
    if (task == "serve") {
        return serveShapes();
    }
    if (task == "call") {
        return callEveryShape();
    }
    std::fputs("usage: kelutv-shapes serve|call\n"
               "  serve  answer every shape of operation until killed; says \"ready\"\n"
               "  call   call every shape, for callgrind to count\n",
               stderr);
    return 2;
}
