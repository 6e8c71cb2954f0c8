#include "foreign/service/Television.h"

#include "wire/codec/Reply.h"
#include "wire/events/EventTable.h"
#include "wire/events/Payload.h"

#include <binder/Parcel.h>

#include <algorithm>
#include <array>
#include <string_view>

namespace foreign {

namespace wire = kelutv::wire;

namespace {

/** A state that does not start with zeros, or is told of. */
struct Row {
    std::string_view state;
    wire::Value initial;
    const char* event;
};

const std::array<Row, 8>& table() {
    static const std::array<Row, 8> rows{{
        {"audio.volume", 33, "volumeChanged"},
        {"audio.mute", 0, "muteChanged"},
        {"sourcemanager.curSource", 11, "sourceChanged"},
        {"picture.brightness", 61, nullptr},
        {"audio.soundMode", 2, nullptr},
        {"factory.macAddress", std::string("0a:0b:0c:0d:0e:0f"), nullptr},
        {"factory.platform", std::string("FTV-7"), nullptr},
        {"factory.panelInfo", std::string("panel of another make"), nullptr},
    }};
    return rows;
}

const Row* rowOf(const wire::StateKey& key) {
    const auto* const row =
        std::find_if(table().begin(), table().end(), [&key](const Row& one) { return one.state == key.name; });
    return row == table().end() ? nullptr : row;
}

Bytes bytesOf(const wire::Reply& reply) {
    android::Parcel parcel;
    wire::writeReply(reply, parcel);
    return {parcel.data(), parcel.data() + parcel.dataSize()};
}

Event eventOf(const char* name, const wire::Values& indexes, const wire::Values& values) {
    static const wire::EventTable events(wire::simulatedEvents());
    const std::string payload = wire::payloadOf(indexes) + wire::payloadOf(values);
    return {events.named(name)->first, {payload.begin(), payload.end()}};
}

} // namespace

Bytes Television::answer(const wire::Request& request, std::vector<Event>& events) {
    if (const std::optional<wire::Reply> reply = mMemories.answer(request)) {
        return bytesOf(*reply);
    }
    return bytesOf(request.refusal ? wire::replyTo(*request.refusal)
                                   : wire::replyWith(*request.operation, request.arguments, carryOut(request, events)));
}

wire::Values Television::kept(const Place& place) const {
    if (const auto found = mKept.find(place); found != mKept.end()) {
        return found->second;
    }
    const Row* const row = rowOf(*place.first);
    return row == nullptr ? wire::Values{} : wire::Values{row->initial};
}

wire::Values Television::carryOut(const wire::Request& request, std::vector<Event>& events) {
    const wire::StateRule& rule = request.operation->rule;
    if (rule.access == wire::StateRule::Access::None) {
        return {};
    }
    const Place place{rule.key, wire::valuesOf(rule.indexes, request.arguments)};
    if (rule.access == wire::StateRule::Access::Get) {
        return kept(place);
    }
    const wire::Values values = wire::valuesOf(rule.values, request.arguments);
    const Row* const row = rowOf(*rule.key);
    if (row != nullptr && row->event != nullptr && kept(place) != values) {
        events.push_back(eventOf(row->event, place.second, values));
    }
    mKept[place] = values;
    return {};
}

} // namespace foreign
