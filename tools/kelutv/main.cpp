#include "tools/kelutv/CommandLine.h"
#include "tools/kelutv/output/Streams.h"
#include "tools/kelutv/worker/TimedCommand.h"

#include <csignal>

int main(int argc, char** argv) {
    std::signal(SIGPIPE, SIG_IGN); // Seen as an error of the write.
    kelutv::tool::keepStreamsApart();
    return static_cast<int>(kelutv::tool::runCommandLine({argv + 1, argv + argc}, kelutv::tool::continueInWorkerFor));
}
