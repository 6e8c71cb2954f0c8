#include "tools/kelutv/replay/ReplayReport.h"

#include "tools/kelutv/text/Lists.h"

namespace kelutv::tool {

namespace {

std::string dangerousText(const ReplayPlan& plan) {
    std::vector<std::string> texts;
    for (const auto& [name, count] : plan.dangerous) {
        texts.push_back(name + " (" + std::to_string(count) + ')');
    }
    return joined(texts);
}

std::size_t dangerousCount(const ReplayPlan& plan) {
    std::size_t sum = 0;
    for (const auto& [name, count] : plan.dangerous) {
        sum += count;
    }
    return sum;
}

std::string countedIfAny(std::size_t count, const std::string& what) {
    return count == 0 ? "" : ", " + std::to_string(count) + ' ' + what;
}

Json documentOf(const ReplayPlan& plan, const ReplaySum& sum) {
    Json dangerous = Json::object();
    for (const auto& [name, count] : plan.dangerous) {
        dangerous[name] = count;
    }
    return {{"calls", plan.calls.size()},     {"sent", sum.sent},
            {"differences", sum.differences}, {"dangerous", dangerous},
            {"unanswered", plan.unanswered},  {"notMeant", plan.notMeant},
            {"missing", plan.missing},        {"gone", sum.isGone}};
}

} // namespace

void tellDifference(const RecordedCall& call, const std::vector<ValueDifference>& values, const Output& output) {
    output.line(std::to_string(call.line) + ' ' + output.styled(Style::Name, "changed") + ' ' + textOf(call.happening) +
                ": " + textOf(values));
    if (output.json) {
        output.document({{"line", call.line},
                         {"process", call.process},
                         {"thread", call.thread},
                         {"text", textOf(call.happening)},
                         {"values", documentOf(values)}});
    }
}

void tellLost(const StatesToSet& states, const Output& output) {
    std::vector<std::string> texts;
    for (const auto& [name, reason] : states.lost) {
        texts.emplace_back(name).append(" (").append(reason).append(")");
    }
    if (!texts.empty()) {
        output.message("kelutv: cannot be put back: " + joined(texts));
    }
}

Exit finishReplay(const ReplayPlan& plan, const ReplaySum& sum, const Output& output) {
    if (!plan.dangerous.empty()) {
        output.message("kelutv: dangerous or unknown, left out unless --allow-dangerous names them: " +
                       dangerousText(plan));
    }
    output.message("kelutv: " + counted(sum.differences, "difference") + " in " + counted(sum.sent, "call") +
                   countedIfAny(dangerousCount(plan), "dangerous left out") +
                   countedIfAny(plan.unanswered, "left out that got no reply") +
                   countedIfAny(plan.notMeant, "not chosen") +
                   countedIfAny(static_cast<std::size_t>(plan.missing), "that the recording lacks"));
    output.document(documentOf(plan, sum));
    if (sum.isGone) {
        output.complain("the service is gone after " + std::to_string(sum.sent) + " of " +
                            counted(plan.calls.size(), "call"),
                        Exit::Link);
        return Exit::Link;
    }
    return sum.differences == 0 ? Exit::Success : Exit::Failure;
}

} // namespace kelutv::tool
