#include "tools/kelutv/compliance/framework/OtherValues.h"

#include "tools/kelutv/calls/Call.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>

namespace kelutv::tool::compliance {

namespace {

/** What one of the values may be. */
struct Kind {
    const wire::Enumeration* names;
    const wire::Range* range;
    bool isFlag;
};

using Kinds = std::vector<Kind>;

bool isKey(const wire::Parameter& parameter, const Reading& reading) {
    const auto keys = givenParameters(*reading.function);
    return std::any_of(keys.begin(), keys.end(),
                       [&parameter](const wire::Parameter* key) { return std::string(key->name) == parameter.name; });
}

void addKinds(const wire::ValueType& type, std::size_t wanted, Kinds& kinds) {
    if (type.kind == wire::ValueKind::Record) {
        for (const wire::Field& field : type.record->fields) {
            kinds.push_back({field.names, field.range, field.scalar == wire::ScalarType::Bool});
        }
        return;
    }
    const Kind kind{type.names, type.range, type.scalar == wire::ScalarType::Bool};
    kinds.push_back(kind);
    while (type.kind == wire::ValueKind::Array && kinds.size() < wanted) {
        kinds.push_back(kind);
    }
}

/** The kind of each value, as far as the parameters say. */
Kinds kindsOf(const wire::Function& setter, const HeldState& held) {
    Kinds kinds;
    for (const wire::Parameter* const parameter : givenParameters(setter)) {
        if (parameter->direction != wire::Direction::Length && !isKey(*parameter, held.reading)) {
            addKinds(parameter->values, held.values.entries().size(), kinds);
        }
    }
    return kinds;
}

/** The one that comes so many steps behind this one, going round. */
std::int64_t behind(const std::vector<std::int64_t>& allowed, std::int64_t value, std::size_t steps) {
    const auto place = std::find(allowed.begin(), allowed.end(), value);
    const auto at = place == allowed.end() ? allowed.size() - 1 : static_cast<std::size_t>(place - allowed.begin());
    return allowed[(at + steps) % allowed.size()];
}

std::int64_t otherNamed(const wire::Enumeration& names, std::int64_t value, std::size_t steps) {
    std::vector<std::int64_t> allowed;
    for (const wire::Enumerator& each : names.values) {
        if (!each.isEndMarker && std::find(allowed.begin(), allowed.end(), each.value) == allowed.end()) {
            allowed.push_back(each.value);
        }
    }
    return allowed.empty() ? value : behind(allowed, value, steps);
}

std::int64_t otherIn(const wire::Range& range, std::int64_t value, std::size_t steps) {
    const std::int64_t step = std::max<std::int64_t>(static_cast<std::int64_t>(range.step.value_or(1)), 1);
    const std::int64_t length = (std::int64_t{*range.greatest} - *range.least) / step + 1;
    const std::int64_t at = (value - *range.least) / step + static_cast<std::int64_t>(steps);
    return *range.least + (at % length + length) % length * step;
}

std::int64_t otherNumber(const Kind& kind, std::int64_t value, std::size_t steps) {
    if (kind.names != nullptr) {
        return otherNamed(*kind.names, value, steps);
    }
    if (kind.isFlag) {
        return value == 0 ? 1 : 0;
    }
    if (kind.range != nullptr && kind.range->isBounded()) {
        return otherIn(*kind.range, value, steps);
    }
    const auto far = static_cast<std::int64_t>(steps);
    return value >= far ? value - far : value + far;
}

Json otherText(const std::string& text, std::size_t steps) {
    const char digit = static_cast<char>('0' + steps);
    const char other = !text.empty() && text.back() == digit ? '0' : digit;
    return text.substr(0, text.empty() ? 0 : text.size() - 1) + other;
}

Json other(const Kind& kind, const Json& value, std::size_t steps) {
    if (value.isInteger()) {
        return otherNumber(kind, value.asInteger(), steps);
    }
    if (value.isNumber()) {
        return value.asReal() + (value.asReal() > 0 ? -0.5 : 0.5) * static_cast<double>(steps);
    }
    return value.isText() ? otherText(value.asText(), steps) : value;
}

/** The values with so many of the first ones changed. */
Json changed(const Kinds& kinds, const Json& values, std::size_t count, std::size_t steps) {
    Json list = Json::array();
    for (std::size_t i = 0; i < values.entries().size(); ++i) {
        const Json& value = values.entries()[i];
        list.add(i < count ? other(kinds[i], value, steps) : value);
    }
    return list;
}

} // namespace

std::vector<Json> otherValues(const wire::Function& setter, const HeldState& held) {
    constexpr std::size_t kMostSteps = 3;
    const Kinds kinds = kindsOf(setter, held);
    const std::size_t most = std::min(kinds.size(), held.values.entries().size());
    std::vector<Json> lists;
    for (const std::size_t count : {most, std::size_t{1}}) {
        for (std::size_t steps = 1; steps <= kMostSteps && count <= most; ++steps) {
            Json list = changed(kinds, held.values, count, steps);
            if (list != held.values && std::find(lists.begin(), lists.end(), list) == lists.end()) {
                lists.push_back(std::move(list));
            }
        }
    }
    return lists;
}

} // namespace kelutv::tool::compliance
