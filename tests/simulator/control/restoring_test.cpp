// What show says brings everything back that the television kept then, whatever it keeps now.

#include "simulator/control/Control.h"
#include "simulator/television/StateRequests.h"
#include "simulator/television/Television.h"
#include "wire/StateForm.h"

#include <kelutv/source_types.h>
#include <kelutv/video_types.h>

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <set>
#include <sstream>
#include <string>
#include <vector>

namespace kelutv::simulator {

namespace {

using Lines = std::vector<std::string>;

/** What makes one television differ from another: all of its keys and values are made of this number. */
struct Make {
    std::int32_t number;
    std::int32_t source;
    const char* text;
    bool hasLists;
};

constexpr Make kMakes[] = {
    {1, KELU_TV_SRC_HDMI1, "a \"b\\\" c, d] = \x01\xff \xc3\xa9", true},
    {3, KELU_TV_SRC_HDMI3, "", false},
};

std::unique_ptr<Television> makeTelevision() { return std::make_unique<Television>(Configuration::standard()); }

Answer say(Television& television, const std::string& line) {
    return obey(television.equipment().configuration, line,
                [&television](const Deed& deed) { return television.operate(deed); });
}

void sayWell(Television& television, const std::string& line) {
    const Answer answer = say(television, line);
    EXPECT_TRUE(answer.ok) << line << ": " << answer.text;
}

std::string shown(Television& television) { return say(television, "show").text; }

void sayAll(Television& television, const std::string& text) {
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        sayWell(television, line);
    }
}

/** The EEPs are no settings and not among what is shown. */
bool isEep(const wire::StateKey& key) {
    const std::string name = key.name;
    return name == "systemsetting.eep" || name == "systemsetting.flashEep";
}

wire::Values indexesFor(const Configuration& configuration, const wire::StateKey& key, const Make& make) {
    wire::Values indexes;
    for (const wire::Holds holds : key.indexes) {
        if (configuration.settings(key).indexIsSource) {
            indexes.emplace_back(make.source);
        } else if (holds == wire::Holds::Texts) {
            indexes.emplace_back(std::string(make.text) + "key");
        } else {
            indexes.emplace_back(make.number);
        }
    }
    return indexes;
}

wire::Value valueFor(const StateSettings& settings, wire::Encoding encoding, const Make& make) {
    switch (encoding) {
    case wire::Encoding::Double:
    case wire::Encoding::Doubles:
        return make.number * 0.1;
    case wire::Encoding::CString:
    case wire::Encoding::String16:
    case wire::Encoding::Bytes:
        return std::string(make.text);
    case wire::Encoding::Int32:
    case wire::Encoding::Ints:
        break;
    }
    return settings.valueIsSource ? make.source : 60 + make.number;
}

wire::Value anyValueFor(wire::Holds holds, const Make& make) {
    switch (holds) {
    case wire::Holds::Reals:
        return double{2};
    case wire::Holds::Texts:
        return std::string(make.text);
    case wire::Holds::Integers:
    case wire::Holds::Anything:
        break;
    }
    return -make.number;
}

wire::Values valuesFor(const Configuration& configuration, const wire::StateKey& key, const Make& make) {
    const wire::StateForm form = wire::formOf(key);
    wire::Values values;
    for (const wire::StatePart& part : form.values) {
        values.push_back(valueFor(configuration.settings(key), part.encoding, make));
    }
    for (int more = 0; more < 3 && form.isOpen && make.hasLists; ++more) {
        values.push_back(anyValueFor(key.holds, make));
    }
    return values;
}

/** Sets every state that can be set. */
void setEverything(Television& television, const Make& make) {
    for (const wire::StateKey& key : wire::allStates()) {
        const Configuration& configuration = television.equipment().configuration;
        const wire::Values indexes = indexesFor(configuration, key, make);
        const wire::Values values = valuesFor(configuration, key, make);
        television.operate(
            [&](Equipment& equipment) { return isEep(key) || setByRequest(equipment, key, indexes, values); });
    }
}

std::string textOf(const wire::Values& values) {
    std::ostringstream text;
    for (const wire::Value& value : values) {
        text << value.index() << ':';
        std::visit([&text](const auto& each) { text << each << ' '; }, value);
    }
    return text.str();
}

/** What a client can read of a state. */
std::string readingOf(Television& television, const wire::StateKey& key, const wire::Values& indexes) {
    return television.operate([&](Equipment& equipment) {
        const Reading reading = readByRequest(equipment, key, indexes);
        return reading.refusal ? reading.refusal->text : textOf(wire::completed(wire::formOf(key), reading.values));
    });
}

using Everything = std::map<std::string, std::string>;

void readStates(Television& television, Everything& all) {
    for (const wire::StateKey& key : wire::allStates()) {
        for (const Make& make : kMakes) {
            const wire::Values indexes = indexesFor(television.equipment().configuration, key, make);
            all[std::string(key.name) + '[' + textOf(indexes) + ']'] = readingOf(television, key, indexes);
        }
    }
    const wire::StateKey& current = *wire::findState("sourcemanager.curSource");
    all["the main window's source"] = readingOf(television, current, {std::int32_t{KELU_TV_WINDOW_MAIN}});
}

void readParts(const Equipment& equipment, Everything& all) {
    for (const auto& [id, source] : equipment.sources.all()) {
        std::string& text = all[source.name];
        text = source.plugged ? "plugged " : "unplugged ";
        for (const auto& [key, values] : source.signal) {
            text += key->name + ('=' + textOf(values));
        }
    }
    all["shown"] = equipment.sources.isShown() ? "yes" : "no";
    for (const CecDevice& device : equipment.cec.all()) {
        all["devices"] += std::to_string(device.logAddr) + ' ' + std::to_string(device.hdmiDevPort) + ' ' +
                          device.name + ' ' + device.phyAddr + ' ' + device.listText +
                          (device.plugged ? " plugged\n" : " unplugged\n");
    }
    all["playing"] = std::to_string(equipment.cec.playing());
    const Power& power = equipment.power;
    all["power"] = std::to_string(static_cast<int>(power.state())) + ' ' + std::to_string(power.lastPowerOffMode()) +
                   ' ' + std::to_string(power.wakeupMode());
}

Everything everythingOf(Television& television) {
    Everything all;
    readStates(television, all);
    readParts(television.equipment(), all);
    return all;
}

/** The names of what differs. */
Lines differences(const Everything& wanted, const Everything& found) {
    Lines names;
    for (const auto& [name, text] : wanted) {
        const auto other = found.find(name);
        if (other == found.end() || other->second != text) {
            names.push_back(name + " was " + text + ", is " + (other == found.end() ? "not there" : other->second));
        }
    }
    return names;
}

void leaveAsItIs(Television&) {}

void changeAll(Television& television) {
    setEverything(television, kMakes[0]);
    for (const char* const line :
         {"set sourcemanager.curSource[0] = hdmi2", "signal hdmi2 1080p50 dviMode=1", "unplug atv",
          "cec put logAddr=5 hdmiDevPort=1 name=Bar plugged=0",
          "cec put logAddr=11 hdmiDevPort=2 name=\"Game \\\"console\"", "cec keep 11 5", "cec play 11", "power memory",
          "power on wakeupMode=7", "set factory.keyData[1] = 1, 2, 3"}) {
        sayWell(television, line);
    }
}

/** Nothing is in the main window, without a setting that says so. */
void changeAllElse(Television& television) {
    setEverything(television, kMakes[1]);
    for (const char* const line :
         {"set sourcemanager.curSource[0] = vga", "set sourcemanager.curSource[1] = hdmi4", "signal vga none",
          "unplug hdmi3", "cec put logAddr=4 hdmiDevPort=3 name=\"Another player\" plugged=0",
          "cec put logAddr=5 hdmiDevPort=1", "cec play 5", "power suspended",
          "set sourcemanager.deselected[vga] = 0"}) {
        sayWell(television, line);
    }
}

void forgetDevices(Television& television) { sayWell(television, "cec keep"); }

using Step = void (*)(Television&);

struct Journey {
    const char* name;
    Step before;
    Step after;
};

constexpr Journey kJourneys[] = {
    {"FromTheFirstState", leaveAsItIs, changeAll},
    {"FromTheFirstStateAndAnEmptyWindow", leaveAsItIs, changeAllElse},
    {"FromOneStateToAnother", changeAll, changeAllElse},
    {"FromAnEmptyWindow", changeAllElse, changeAll},
    {"WithoutAChange", changeAllElse, leaveAsItIs},
    {"WithoutDevices", forgetDevices, changeAll},
};

class Restoring : public ::testing::TestWithParam<Journey> {};

TEST_P(Restoring, GivesBackWhatWasShown) {
    const auto television = makeTelevision();
    GetParam().before(*television);
    const Everything wanted = everythingOf(*television);
    const std::string lines = shown(*television);
    GetParam().after(*television);
    EXPECT_EQ(differences(wanted, everythingOf(*television)).empty(), GetParam().after == leaveAsItIs);
    sayAll(*television, lines);
    EXPECT_EQ(differences(wanted, everythingOf(*television)), Lines{});
    EXPECT_EQ(shown(*television), lines);
}

TEST_P(Restoring, MakesAnotherTelevisionLikeIt) {
    const auto television = makeTelevision();
    GetParam().before(*television);
    const auto other = makeTelevision();
    sayAll(*other, shown(*television));
    EXPECT_EQ(differences(everythingOf(*television), everythingOf(*other)), Lines{});
}

INSTANTIATE_TEST_SUITE_P(Each, Restoring, ::testing::ValuesIn(kJourneys),
                         [](const auto& each) { return std::string(each.param.name); });

/** Applications are not told of changes that are none. */
TEST(RestoringWithoutAChange, PublishesNothing) {
    const auto television = makeTelevision();
    const std::string lines = shown(*television);
    sayAll(*television, lines);
    for (const Change& change : television->takeChanges()) {
        ADD_FAILURE() << change.key->name << " becomes " << textOf(change.values);
    }
    EXPECT_TRUE(television->takeEvents().empty());
}

/** Every state that has a value of its own is changed by one of the journeys. */
TEST(RestoringEverything, MeetsEveryState) {
    std::set<std::string> met;
    for (const Step change : {changeAll, changeAllElse}) {
        const auto television = makeTelevision();
        change(*television);
        for (const auto& entry : television->equipment().state.all()) {
            met.insert(entry.first.first->name);
        }
    }
    const auto television = makeTelevision();
    for (const wire::StateKey& key : wire::allStates()) {
        if (isKeptState(television->equipment(), key) && std::string(key.name) != "systemsetting.powerType") {
            EXPECT_EQ(met.count(key.name), 1U) << key.name;
        }
    }
}

} // namespace

} // namespace kelutv::simulator
