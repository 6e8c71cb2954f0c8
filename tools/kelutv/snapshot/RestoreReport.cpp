#include "tools/kelutv/snapshot/RestoreReport.h"

#include "tools/kelutv/snapshot/StateText.h"
#include "tools/kelutv/text/Lists.h"

#include <algorithm>

namespace kelutv::tool {

namespace {

Json restoredDocument(const Restored& restored) {
    return {{"state", restored.state},
            {"wanted", restored.wanted},
            {"before", restored.before},
            {"after", restored.after},
            {"call", restored.call.empty() ? Json() : Json(restored.call)},
            {"complaint", restored.complaint.empty() ? Json() : Json(restored.complaint)}};
}

} // namespace

void tellRestored(const Restored& restored, bool isRehearsal, const Output& output) {
    const auto text = [&restored](const Json& values) { return heldText(restored.state, values); };
    std::string line = output.styled(Style::Name, restored.state) + ": ";
    if (restored.isAsWanted()) {
        line += text(restored.before) + " -> " + text(restored.wanted) + (isRehearsal ? ": " + restored.call : "");
    } else {
        line += text(restored.after.isNull() ? restored.before : restored.after) + ", not " + text(restored.wanted) +
                ": " + restored.complaint;
    }
    output.line(line);
    output.document(restoredDocument(restored));
}

void tellLeftAlone(const std::vector<HeldState>& states, const Output& output) {
    std::vector<std::string> names;
    for (const HeldState& held : states) {
        std::string name = nameWithoutKeys(held.state);
        if (std::find(names.begin(), names.end(), name) == names.end()) {
            names.push_back(std::move(name));
        }
    }
    if (!names.empty()) {
        output.message("kelutv: dangerous, left alone unless --allow-dangerous names them: " + joined(names, ", "));
    }
}

Exit finishRestoring(const std::vector<Restored>& all, std::size_t leftAlone, bool isRehearsal, const Output& output) {
    std::size_t set = 0;
    std::size_t failed = 0;
    for (const Restored& each : all) {
        set += each.isAsWanted() && !each.call.empty() ? 1 : 0;
        failed += each.isAsWanted() ? 0 : 1;
        if (!each.isAsWanted()) {
            tellRestored(each, isRehearsal, output);
        }
    }
    output.message("kelutv: " + counted(set, "state") + (isRehearsal ? " to set, " : " set, ") +
                   std::to_string(failed) + " did not take, " + std::to_string(all.size() - set - failed) +
                   " as wanted, " + std::to_string(leftAlone) + " dangerous left alone");
    output.document({{"set", set},
                     {"failed", failed},
                     {"asWanted", all.size() - set - failed},
                     {"dangerous", leftAlone},
                     {"dryRun", isRehearsal}});
    return failed == 0 ? Exit::Success : Exit::Failure;
}

} // namespace kelutv::tool
