#include "simulator/output/Complaints.h"

#include "simulator/output/LineWriter.h"

#include <unistd.h>

namespace kelutv::simulator {

namespace {

/** Never destroyed: other threads may complain until the process ends. */
LineWriter& writer() {
    static auto* const standardError = new LineWriter(STDERR_FILENO);
    return *standardError;
}

} // namespace

void startComplaints() { writer(); }

void complain(const std::string& message) { writer().add("kelutv-simulator: " + message); }

void flushComplaints() { writer().flush(); }

} // namespace kelutv::simulator
