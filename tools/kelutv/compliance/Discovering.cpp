#include "tools/kelutv/compliance/Discovering.h"

#include "tools/kelutv/compliance/Families.h"
#include "tools/kelutv/compliance/knowledge/Capabilities.h"
#include "tools/kelutv/output/DataOutput.h"
#include "tools/kelutv/text/Lists.h"

#include <algorithm>
#include <filesystem>

namespace kelutv::tool::compliance {

namespace {

/** `11 of 12 modules`. */
std::string partText(const Capabilities::Names& names, const std::string& word) {
    const auto count = std::count_if(names.begin(), names.end(), [](const auto& each) { return each.second; });
    return std::to_string(count) + " of " + counted(names.size(), word);
}

} // namespace

Exit discover(const std::string& path, const JudgingOrder& order, const Output& output) {
    DataOutput data(path == "-" ? "" : path);
    const Checks checks = chosenChecks({"form", "events"}, order.order.terms);
    const std::vector<CheckResult> results =
        makeRun(checks, order.order, progressOn(output, order.order.journal, [](const CheckResult&) {}));
    if (hasEndedEarly(results)) {
        throw ToolError(Exit::Failure, "the service is gone or answers nothing any longer, so that it is not known "
                                       "what the television has");
    }
    const Capabilities capabilities = capabilitiesFrom(checks, results);
    data.write(capabilitiesText(capabilities));
    data.finish();
    output.message("kelutv: the television has " + partText(capabilities.modules, "module") + ", " +
                   partText(capabilities.commands, "command") + ", " + partText(capabilities.keys, "key") + ", " +
                   partText(capabilities.events, "event"));
    if (results.back().id == kPutBackCheck && results.back().verdict == Verdict::failed) {
        if (!std::filesystem::exists(order.order.journal)) {
            output.complain("not all was as before: " + results.back().reason, Exit::Failure);
        }
        return Exit::Failure;
    }
    return Exit::Success;
}

} // namespace kelutv::tool::compliance
