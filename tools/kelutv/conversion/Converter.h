#pragma once

#include "recording/Line.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace kelutv::tool {

/** Takes what a converter writes. */
using Sink = std::function<void(const std::string&)>;

/** Makes something else of a recording, line by line. */
class Converter {
public:
    Converter() = default;
    virtual ~Converter() = default;
    Converter(const Converter&) = delete;
    Converter& operator=(const Converter&) = delete;

    virtual void begin() {}
    virtual void add(const recording::Line& line) = 0;
    virtual void finish() {}
};

/** For packet viewers: requests, replies and events as packets, in a pcapng file. */
std::unique_ptr<Converter> pcapngConverter(Sink sink);

/** For timeline viewers: calls as spans of their threads, events as moments, in the trace-event format. */
std::unique_ptr<Converter> traceEventConverter(Sink sink);

/** For the simulated television: what its states were at first, as a configuration. */
std::unique_ptr<Converter> configConverter(Sink sink);

/** For the simulated television: what happened to it that no recorded request explains, as a scenario. */
std::unique_ptr<Converter> scenarioConverter(Sink sink);

/** `pcapng`, `trace-event`, `scenario` or `config`. @throws UsageError for any other name */
std::unique_ptr<Converter> converterNamed(const std::string& name, Sink sink);

/** What `converterNamed` takes. */
std::vector<std::string> converterNames();

} // namespace kelutv::tool
