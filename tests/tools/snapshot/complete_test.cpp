#include "tools/snapshot/Snapshots.h"

#include <algorithm>
#include <map>
#include <set>

namespace kelutv::test {
namespace {

using tool::Json;

/** How often each state stands in a list of the file. */
std::map<std::string, std::size_t> countedIn(const Json& snapshot, const char* list) {
    std::map<std::string, std::size_t> counts;
    for (const Json& entry : snapshot.at(list).entries()) {
        ++counts[plainName(entry)];
    }
    return counts;
}

std::size_t valuesOf(const wire::Enumeration& names) {
    std::set<std::int32_t> values;
    for (const wire::Enumerator& each : names.values) {
        if (!each.isEndMarker) {
            values.insert(each.value);
        }
    }
    return values.size();
}

/** How many keys an operation has for its state, by its value sets; 0 where they do not say. */
std::size_t keysOf(const wire::Function& function) {
    std::size_t keys = 1;
    for (const wire::Parameter& parameter : function.parameters) {
        if (parameter.direction == wire::Direction::Out) {
            continue;
        }
        const wire::ValueType& type = parameter.values;
        const bool isRange = type.range != nullptr && type.range->isBounded();
        const std::size_t range =
            isRange ? static_cast<std::size_t>(*type.range->greatest - *type.range->least + 1) : 0;
        keys *= type.names != nullptr ? valuesOf(*type.names) : range;
    }
    return keys;
}

/** Whether the operation itself says under which key it reads. */
bool hasKeysOfItsOwn(const wire::Function& function) {
    return std::all_of(function.parameters.begin(), function.parameters.end(),
                       [](const wire::Parameter& parameter) { return parameter.direction == wire::Direction::Out; });
}

/** Every state that an operation reads with the number of its keys, which add up where each operation has its own. */
std::map<std::string, std::size_t> readableStates() {
    std::map<std::string, std::size_t> states;
    for (const wire::Function& function : wire::allFunctions()) {
        const wire::StateKey* const key = stateReadBy(function);
        if (key == nullptr) {
            continue;
        }
        const bool hasKeys = key->indexes.size() != 0;
        const std::size_t keys = hasKeys ? keysOf(function) : std::min<std::size_t>(keysOf(function), 1);
        const bool isPart = std::string(function.module) == "eep" || (hasKeys && hasKeysOfItsOwn(function));
        std::size_t& known = states[key->name];
        known = isPart ? known + keys : std::max(known, keys);
    }
    return states;
}

TEST_F(Snapshots, holdEveryReadableStateOfTheCatalogueOrSayWhyNot) {
    const Json& all = fresh();
    const auto held = countedIn(all, "states");
    const auto missing = countedIn(all, "missing");
    const auto at = [](const std::map<std::string, std::size_t>& counts, const std::string& name) {
        const auto found = counts.find(name);
        return found == counts.end() ? 0 : found->second;
    };
    for (const auto& [name, keys] : readableStates()) {
        if (keys == 0) {
            EXPECT_EQ(at(held, name), 0U) << name;
            EXPECT_EQ(at(missing, name), 1U) << name;
        } else if (name == "systemsetting.flashEep") {
            EXPECT_EQ(at(held, name), keys);
            EXPECT_EQ(at(missing, name), 1U) << "the rest of the memory";
        } else {
            EXPECT_EQ(at(held, name) + at(missing, name), keys) << name;
        }
    }
    EXPECT_EQ(all.at("held").asInteger(), static_cast<std::int64_t>(all.at("states").entries().size()));
    EXPECT_EQ(all.at("readable").asInteger(),
              all.at("held").asInteger() + static_cast<std::int64_t>(all.at("missing").entries().size()));
    EXPECT_EQ(readableStates().size(), 336U);
    EXPECT_EQ(all.at("readable").asInteger(), 3463);
    EXPECT_EQ(all.at("held").asInteger(), 3410);
}

TEST_F(Snapshots, haveValuesAsTheyGoOverTheWire) {
    const Json& volume = *entryOf(fresh(), "states", "audio.volume[speaker]");
    EXPECT_EQ(volume.at("values"), Json::array({20}));
    EXPECT_EQ(volume.at("result"), Json(0));
    EXPECT_EQ(volume.at("function"), Json("linux_tv_Audio_getVolume"));
    EXPECT_EQ(volume.at("arguments"), (Json{{"channel", "KELU_TV_AUDIO_CHANNEL_SPEAKER"}}));
    EXPECT_EQ(entryOf(fresh(), "states", "factory.macAddress")->at("values"), Json::array({"02:00:00:12:34:56"}));
    EXPECT_EQ(entryOf(fresh(), "states", "systemsetting.flashEep[35328]")->at("values"), Json::array({0}));
}

TEST_F(Snapshots, nameEveryReadingOperationThatIsNotAsked) {
    const Json& all = fresh();
    std::set<std::string> named;
    for (const char* const list : {"states", "missing"}) {
        for (const Json& entry : all.at(list).entries()) {
            named.insert(entry.at("function").asText());
        }
    }
    for (const wire::Function& function : wire::allFunctions()) {
        // What reads a state that another operation reads, too, is not asked twice.
        if (function.effect.kind == wire::EffectKind::Read && stateReadBy(function) == nullptr) {
            EXPECT_EQ(named.count(function.name), 1U) << function.name;
        }
    }
    EXPECT_EQ(entryOf(all, "missing", "audio.getAudioItemValue")->at("reason"),
              Json("hands on any item; each that the catalogue knows is read by an operation of its own"));
    EXPECT_EQ(entryOf(all, "missing", "audio.equalLound[?]")->at("reason"),
              Json("the catalogue does not say which values index can have"));
    const Json& refused = *entryOf(all, "missing", "sourcemanager.offlineSigStatus[scart1]");
    EXPECT_EQ(refused.at("reason"), Json("refused: the service answered -108, no such source"));
    EXPECT_EQ(refused.at("result"), Json(-108));
}

} // namespace
} // namespace kelutv::test
