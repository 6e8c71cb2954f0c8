#include "tools/kelutv/conversion/Converter.h"
#include "tools/kelutv/decoding/Decoding.h"
#include "tools/kelutv/output/Json.h"

#include "recording/ObservedState.h"

#include <set>
#include <utility>

namespace kelutv::tool {

namespace {

Json valueOf(const wire::Value& value) {
    return std::visit([](const auto& each) { return Json(each); }, value);
}

Json valueOf(const wire::Values& values) {
    if (values.size() == 1) {
        return valueOf(values.front());
    }
    Json list = Json::array();
    for (const wire::Value& value : values) {
        list.add(valueOf(value));
    }
    return list;
}

/** What a state was when it was seen first, for its only index or without one. */
class Config : public Converter {
public:
    explicit Config(Sink sink) : mSink(std::move(sink)) {}

    void add(const recording::Line& line) override {
        const auto* const transaction = std::get_if<recording::Transaction>(&line.content);
        if (transaction == nullptr) {
            return;
        }
        const auto state = recording::observedState(decodeRequest(transaction->request).request, transaction->reply);
        if (state && isConfigurable(*state) && mKnown.emplace(state->key, state->indexes).second && !state->isSet) {
            keep(*state);
        }
    }

    void finish() override { mSink(mModules.dump() + '\n'); }

private:
    /** A configuration gives a value for each of several numbers, and for nothing else. */
    static bool isConfigurable(const recording::ObservedState& state) {
        return state.indexes.empty() ||
               (state.indexes.size() == 1 && std::holds_alternative<std::int32_t>(state.indexes.front()));
    }

    void keep(const recording::ObservedState& state) {
        const std::string name = state.key->name;
        const std::size_t point = name.find('.');
        Json& initial = mModules[name.substr(0, point)][name.substr(point + 1)]["initial"];
        if (state.indexes.empty()) {
            initial = valueOf(state.values);
        } else {
            initial[std::to_string(std::get<std::int32_t>(state.indexes.front()))] = valueOf(state.values);
        }
    }

    Sink mSink;
    Json mModules = Json::object();
    std::set<std::pair<const wire::StateKey*, wire::Values>> mKnown;
};

} // namespace

std::unique_ptr<Converter> configConverter(Sink sink) { return std::make_unique<Config>(std::move(sink)); }

} // namespace kelutv::tool
