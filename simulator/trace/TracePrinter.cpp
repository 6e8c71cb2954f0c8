#include "simulator/trace/TracePrinter.h"

#include "simulator/trace/Trace.h"

namespace kelutv::simulator {

void TracePrinter::served(const Served& served) { print(describe(served.caller, served.request, served.reply)); }

void TracePrinter::published(const PublishedEvent& event) { print(describe(event)); }

void TracePrinter::faulted(pid_t caller, const wire::Request& request, const FaultRule& fault) {
    print(describe(caller, request, fault));
}

void TracePrinter::print(const std::string& line) {
    std::fprintf(mFile, "%s\n", line.c_str());
    std::fflush(mFile);
}

} // namespace kelutv::simulator
