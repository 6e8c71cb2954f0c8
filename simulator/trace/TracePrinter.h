#pragma once

#include "simulator/trace/Watcher.h"

#include <cstdio>
#include <string>

namespace kelutv::simulator {

/** Prints one line per request, event and fault met, each at once. */
class TracePrinter : public Watcher {
public:
    explicit TracePrinter(std::FILE* file) : mFile(file) {}

    void served(const Served& served) override;
    void published(const PublishedEvent& event) override;
    void faulted(pid_t caller, const wire::Request& request, const FaultRule& fault) override;

private:
    void print(const std::string& line);

    std::FILE* const mFile;
};

} // namespace kelutv::simulator
