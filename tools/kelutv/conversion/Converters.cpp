#include "tools/kelutv/conversion/Converter.h"

#include "tools/kelutv/output/Errors.h"
#include "wire/text/Join.h"
#include "wire/text/Nearest.h"
#include "wire/text/Shown.h"

#include <map>
#include <utility>

namespace kelutv::tool {

namespace {

const std::map<std::string, std::unique_ptr<Converter> (*)(Sink)>& converters() {
    static const std::map<std::string, std::unique_ptr<Converter> (*)(Sink)> all{{"pcapng", pcapngConverter},
                                                                                 {"trace-event", traceEventConverter},
                                                                                 {"scenario", scenarioConverter},
                                                                                 {"config", configConverter}};
    return all;
}

} // namespace

std::unique_ptr<Converter> converterNamed(const std::string& name, Sink sink) {
    const auto found = converters().find(name);
    if (found == converters().end()) {
        throw UsageError("--to takes " + wire::joined(converterNames()) + ", not '" + wire::shown(name) + '\'' +
                         wire::nearestHint(name, converterNames()));
    }
    return found->second(std::move(sink));
}

std::vector<std::string> converterNames() {
    std::vector<std::string> names;
    for (const auto& [name, make] : converters()) {
        names.push_back(name);
    }
    return names;
}

} // namespace kelutv::tool
