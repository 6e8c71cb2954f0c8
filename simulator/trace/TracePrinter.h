#pragma once

#include "simulator/output/LineWriter.h"
#include "simulator/trace/Watcher.h"

#include <memory>
#include <utility>

namespace kelutv::simulator {

/** Prints one line per request, event and fault met, before the caller has its answer if somebody reads them. */
class TracePrinter : public Watcher {
public:
    explicit TracePrinter(std::shared_ptr<LineWriter> output) : mOutput(std::move(output)) {}

    void served(const Served& served) override;
    void published(const PublishedEvent& event) override;
    void faulted(pid_t caller, const wire::Request& request, const FaultRule& fault) override;
    void answering() override { mOutput->flush(); }
    void exiting() override { mOutput->flush(); }

private:
    const std::shared_ptr<LineWriter> mOutput;
};

} // namespace kelutv::simulator
