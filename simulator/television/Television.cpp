#include "simulator/television/Television.h"

#include "simulator/output/Complaints.h"
#include "simulator/television/HandlerTable.h"
#include "simulator/television/StateAccess.h"

#include <stdexcept>

namespace kelutv::simulator {

Television::Television(Configuration configuration, EepStore eep, const std::string& stateFile)
    : mEquipment(std::move(configuration), std::move(eep)), mStateFile(stateFile) {
    mStateFile.restore(mEquipment);
}

wire::Reply Television::perform(const wire::Request& request) {
    wire::Reply reply = carryOut(request);
    keepState();
    return reply;
}

wire::Reply Television::carryOut(const wire::Request& request) {
    if (const Handler handler = handlerOf(request)) {
        return handler(mEquipment, request);
    }
    const wire::StateRule& rule = request.operation->rule;
    return rule.access == wire::StateRule::Access::None ? wire::replyWith(*request.operation, request.arguments, {})
                                                        : apply(request, rule);
}

wire::Reply Television::apply(const wire::Request& request, const wire::StateRule& rule) {
    const wire::Values indexes = wire::valuesOf(rule.indexes, request.arguments);
    if (rule.access == wire::StateRule::Access::Set) {
        const auto refusal = setState(mEquipment, *rule.key, indexes, wire::valuesOf(rule.values, request.arguments));
        return refusal ? replyTo(*refusal) : wire::replyWith(*request.operation, request.arguments, {});
    }
    const auto refusal = objectionToIndexes(mEquipment, *rule.key, indexes);
    return refusal ? replyTo(*refusal)
                   : wire::replyWith(*request.operation, request.arguments, readState(mEquipment, *rule.key, indexes));
}

void Television::keepState() {
    try {
        mStateFile.keep(mEquipment);
        mIsUnkeepable = false;
    } catch (const std::runtime_error& error) {
        if (!std::exchange(mIsUnkeepable, true)) {
            complain(error.what());
        }
    }
}

} // namespace kelutv::simulator
