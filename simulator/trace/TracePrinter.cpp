#include "simulator/trace/TracePrinter.h"

#include "simulator/trace/Trace.h"

namespace kelutv::simulator {

void TracePrinter::served(const Served& served) { mOutput->add(describe(served.caller, served.request, served.reply)); }

void TracePrinter::published(const PublishedEvent& event) { mOutput->add(describe(event)); }

void TracePrinter::faulted(pid_t caller, const wire::Request& request, const FaultRule& fault) {
    mOutput->add(describe(caller, request, fault));
}

} // namespace kelutv::simulator
