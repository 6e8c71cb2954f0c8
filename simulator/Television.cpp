#include "Television.h"

#include "Control.h"
#include "Settings.h"
#include "Special.h"

#include <cstdio>
#include <stdexcept>

namespace simulator {

namespace {

Scalars collect(const Rows<Operand>& operands, const Arguments& arguments) {
    Scalars scalars;
    for (const Operand& operand : operands) {
        if (operand.index < 0) {
            scalars.emplace_back(operand.literal);
        } else {
            const Scalars& argument = arguments[static_cast<std::size_t>(operand.index)];
            scalars.insert(scalars.end(), argument.begin(), argument.end());
        }
    }
    return scalars;
}

} // namespace

Television::Television(Configuration configuration, EepStore eep, const std::string& stateFile)
    : mEquipment(std::move(configuration), std::move(eep)), mStateFile(stateFile) {
    mStateFile.restore(mEquipment);
}

Reply Television::perform(const Request& request) {
    Reply reply = carryOut(request);
    keepState();
    return reply;
}

Answer Television::control(const std::string& line) {
    Answer answer = obey(mEquipment, line);
    keepState();
    return answer;
}

Reply Television::carryOut(const Request& request) {
    if (const Handler handler = specialHandler(request)) {
        return handler(mEquipment, request);
    }
    const Rule& rule = request.operation->rule;
    return rule.kind == Rule::Kind::None ? replyWith(*request.operation, {}) : apply(request, rule);
}

Reply Television::apply(const Request& request, const Rule& rule) {
    const Scalars keys = collect(rule.keys, request.arguments);
    if (rule.kind == Rule::Kind::Set) {
        const auto fault = setState(mEquipment, *rule.slot, keys, collect(rule.values, request.arguments));
        return fault ? refusal(*fault) : replyWith(*request.operation, {});
    }
    const auto fault = objectionToKeys(mEquipment, *rule.slot, keys);
    return fault ? refusal(*fault) : replyWith(*request.operation, readState(mEquipment, *rule.slot, keys));
}

/** A request that was carried out stands even if it could not be kept. */
void Television::keepState() {
    try {
        mStateFile.keep(mEquipment);
    } catch (const std::runtime_error& error) {
        std::fprintf(stderr, "kelutv-simulator: %s\n", error.what());
    }
}

} // namespace simulator
