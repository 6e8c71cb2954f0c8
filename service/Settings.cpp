#include "kelutv-service/Settings.h"

#include "wire/StateForm.h"
#include "wire/codec/Reply.h"
#include "wire/codec/Request.h"
#include "wire/events/EventTable.h"

#include <algorithm>
#include <stdexcept>

namespace kelutv::service {

namespace {

const wire::StateKey& stateNamed(const std::string& name, const std::string& module) {
    const wire::StateKey* const key = wire::findState(name);
    if (key == nullptr || key->module != module) {
        throw std::invalid_argument("there is no state " + name + " in " + module);
    }
    return *key;
}

/** An event of a state has a field for each of its keys and for each of its values. */
void requireEvent(const char* name, const wire::StateKey& key) {
    const wire::Event* const event = wire::EventTable(wire::simulatedEvents()).named(name);
    if (event == nullptr) {
        throw std::invalid_argument(std::string("there is no event ") + name);
    }
    const wire::StateForm form = wire::formOf(key);
    if (event->fields.size() != form.indexes.size() + form.values.size()) {
        throw std::invalid_argument(std::string(name) + " has no place for the keys and values of " + key.name);
    }
}

bool isNamed(const wire::Enumeration& names, const Value& value) {
    const auto* const number = std::get_if<std::int32_t>(&value);
    return number != nullptr &&
           std::any_of(names.values.begin(), names.values.end(),
                       [number](const wire::Enumerator& each) { return each.value == *number && !each.isEndMarker; });
}

/** What of the request has a number that its names do not have; null for nothing. */
const char* unnamedIn(const wire::Request& request) {
    for (std::size_t i = 0; i < request.arguments.size(); ++i) {
        const wire::RequestItem& item = request.operation->request[i];
        const Values& values = request.arguments[i];
        if (item.names != nullptr && !std::all_of(values.begin(), values.end(), [&item](const Value& value) {
                return isNamed(*item.names, value);
            })) {
            return item.name;
        }
    }
    return nullptr;
}

bool isWithin(const Setting& setting, const Value& value) {
    const auto* const number = std::get_if<std::int32_t>(&value);
    return number == nullptr || (*number >= setting.least && *number <= setting.greatest);
}

} // namespace

Settings::Settings(std::string module, const std::vector<Setting>& settings) : mModule(std::move(module)) {
    for (const wire::StateKey& key : wire::allStates()) {
        if (key.module == mModule) {
            mSettings.emplace(key.name, Setting{key.name});
        }
    }
    for (const Setting& setting : settings) {
        const wire::StateKey& key = stateNamed(setting.state, mModule);
        if (setting.event != nullptr) {
            requireEvent(setting.event, key);
        }
        mSettings.insert_or_assign(setting.state, setting);
    }
    if (mSettings.empty()) {
        throw std::invalid_argument("no module " + mModule + " has states");
    }
}

Reply Settings::answer(const Request& request, Events& events) {
    if (mSettings.count(request.state()) == 0) {
        return Reply::refused();
    }
    if (const char* const unnamed = unnamedIn(request.wire())) {
        return Reply::outOfRange(std::string(unnamed) + " has no such value");
    }
    return request.access() == Request::Access::Set ? set(request, events) : get(request);
}

Values Settings::read(const std::string& state, const Values& keys) const {
    const auto found = mKept.find({state, keys});
    return found != mKept.end() ? found->second : settingOf(state).initial;
}

void Settings::keep(const std::string& state, const Values& keys, const Values& values, Events& events) {
    if (wire::isReadAlike(stateNamed(state, mModule), read(state, keys), values)) {
        return;
    }
    const auto [entry, isNew] = mKept.try_emplace({state, keys});
    mSize += wire::keptSize(keys, values) - (isNew ? 0 : wire::keptSize(keys, entry->second));
    entry->second = values;
    publish(entry->first, events);
}

void Settings::restore(Events& events) {
    const auto before = std::exchange(mKept, {});
    mSize = 0;
    for (const auto& [place, values] : before) {
        if (!wire::isReadAlike(stateNamed(place.first, mModule), read(place.first, place.second), values)) {
            publish(place, events);
        }
    }
}

const Setting& Settings::settingOf(const std::string& state) const {
    const auto found = mSettings.find(state);
    if (found == mSettings.end()) {
        throw std::invalid_argument("there is no state " + state + " in " + mModule);
    }
    return found->second;
}

Reply Settings::set(const Request& request, Events& events) {
    const Setting& setting = settingOf(request.state());
    const Values values = request.given();
    if (!std::all_of(values.begin(), values.end(), [&](const Value& value) { return isWithin(setting, value); })) {
        return Reply::outOfRange(request.state() + " goes from " + std::to_string(setting.least) + " to " +
                                 std::to_string(setting.greatest));
    }
    const Place place{request.state(), request.keys()};
    if (!hasRoomFor(place, values)) {
        return Reply::outOfRange("no more is kept");
    }
    keep(place.first, place.second, values, events);
    return Reply::done();
}

Reply Settings::get(const Request& request) const {
    const wire::Request& asked = request.wire();
    const Values kept = read(request.state(), request.keys());
    const wire::Reply reply = wire::replyWith(*asked.operation, asked.arguments, kept);
    if (asked.operation->shape == wire::Shape::Status) {
        return Reply::of({reply.result});
    }
    Values values;
    for (std::size_t i = 0; i < reply.fields.size(); ++i) {
        if (asked.operation->reply[i].count != wire::kCountOfRest) {
            values.insert(values.end(), reply.fields[i].begin(), reply.fields[i].end());
        }
    }
    return Reply::of(std::move(values));
}

bool Settings::hasRoomFor(const Place& place, const Values& values) const {
    const auto found = mKept.find(place);
    const std::size_t before = found != mKept.end() ? wire::keptSize(place.second, found->second) : 0;
    const std::size_t after = wire::keptSize(place.second, values);
    return after <= before || mSize - before + after <= kMostSet;
}

void Settings::publish(const Place& place, Events& events) const {
    if (const char* const event = settingOf(place.first).event) {
        Values payload = place.second;
        const Values now =
            wire::completed(wire::formOf(stateNamed(place.first, mModule)), read(place.first, place.second));
        payload.insert(payload.end(), now.begin(), now.end());
        events.publish(event, payload);
    }
}

} // namespace kelutv::service
