#include "simulator/television/Factory.h"

#include <kelutv/factory_types.h>

#include <algorithm>
#include <cstdio>

namespace kelutv::simulator {

namespace {

constexpr std::size_t kBytesOfMac = 6;
constexpr std::size_t kKindsInBurnStatus = 32;

/** What identifies a set, as opposed to its adjustments. */
constexpr const char* kIdentity[] = {
    "factory.macAddress",    "factory.machineInfo", "factory.burnKeyStatus",
    "factory.keyBurnStatus", "factory.keyData",     "factory.isBurnOtpRsa",
};

bool isByte(const wire::Value& value) {
    const auto number = std::get<std::int32_t>(value);
    return number >= 0 && number <= 0xFF;
}

bool isIdentity(const wire::StateKey& key) {
    return std::any_of(std::begin(kIdentity), std::end(kIdentity),
                       [&key](const char* name) { return key.name == std::string(name); });
}

} // namespace

bool setMacAddress(State& state, const wire::Values& parts) {
    if (parts.size() != kBytesOfMac || !std::all_of(parts.begin(), parts.end(), isByte)) {
        return false;
    }
    std::string text;
    for (const wire::Value& part : parts) {
        char digits[4];
        std::snprintf(digits, sizeof(digits), "%02X", static_cast<unsigned int>(std::get<std::int32_t>(part) & 0xFF));
        text += (text.empty() ? "" : ":") + std::string(digits);
    }
    state.keep(*wire::findState("factory.macAddress"), {}, {text});
    return true;
}

bool burnKey(State& state, std::int32_t kind, const wire::Values& data) {
    if (kind < 0 || kind >= KELU_TV_MUL_KEY_BUTT) {
        return false;
    }
    const wire::StateKey& all = *wire::findState("factory.burnKeyStatus");
    wire::Values burned = state.kept(all, {});
    burned.resize(kKindsInBurnStatus, std::int32_t{0});
    burned[static_cast<std::size_t>(kind)] = std::int32_t{1};
    state.keep(all, {}, burned);
    state.keep(*wire::findState("factory.keyBurnStatus"), {kind}, {std::int32_t{1}});
    state.keep(*wire::findState("factory.keyData"), {kind}, data);
    return true;
}

std::string burnOtp(State& state) {
    state.keep(*wire::findState("factory.isBurnOtpRsa"), {}, {std::int32_t{1}});
    const wire::Values kept = state.kept(*wire::findState("factory.dtvSn"), {std::int32_t{KELU_TV_DTV_SN_TV}});
    return kept.empty() ? "" : std::get<std::string>(kept.front());
}

void restoreFactorySettings(State& state) {
    state.restore([](const wire::StateKey& key) { return key.module == std::string("factory") && !isIdentity(key); });
}

void restoreSetting(State& state, const char* name) {
    state.restore([name](const wire::StateKey& key) { return key.name == std::string(name); });
}

} // namespace kelutv::simulator
