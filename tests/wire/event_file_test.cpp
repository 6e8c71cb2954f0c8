#include "wire/events/EventFile.h"
#include "wire/text/PipeTables.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace kelutv::wire {

namespace {

constexpr char kTelevision[] = R"(# My television

Words before a table say nothing.

## Enumerations

| enumeration | enumerator | value | meaning |
|---|---|---|---|
| MY_LAMP_E | MY_LAMP_OFF | 0 | Off. |
| MY_LAMP_E | MY_LAMP_ON | 0x10 | On. |

## Events

| event | identifier | payload | when |
|:---|---:|---|---|
| lampSwitched | KELU_EM_MODE_VOLUME+0x20 | lamp:MY_LAMP_E, source:KELU_TV_SRC_E, kind:uint8 | A lamp is switched. |
| lampNamed | 0x60021 | name:text | It gets a name. |
| lampBlock | KELU_EM_MODE_TTX+0..KELU_EM_MODE_TTX+9 | length:int16, data:bytes | A block comes. |
| lampsTested | 393250 | - | All lamps were tested. |
)";

TEST(EventFile, GivesEventsWithTheirFields) {
    const EventTable table = readEvents(kTelevision);
    EXPECT_EQ(table.names(), (std::vector<std::string>{"lampSwitched", "lampNamed", "lampBlock", "lampsTested"}));
    const Event* const switched = table.find(0x60020);
    ASSERT_NE(switched, nullptr);
    EXPECT_STREQ(switched->name, "lampSwitched");
    EXPECT_STREQ(switched->when, "A lamp is switched.");
    ASSERT_EQ(switched->fields.size(), 3U);
    EXPECT_STREQ(switched->fields[0].name, "lamp");
    EXPECT_EQ(switched->fields[0].type, FieldType::Int32);
    ASSERT_EQ(switched->fields[0].names->values.size(), 2U);
    EXPECT_STREQ(switched->fields[0].names->values[1].name, "MY_LAMP_ON");
    EXPECT_EQ(switched->fields[0].names->values[1].value, 16);
    EXPECT_STREQ(switched->fields[1].names->name, "KELU_TV_SRC_E");
    EXPECT_EQ(switched->fields[2].type, FieldType::UInt8);
    EXPECT_EQ(switched->fields[2].names, nullptr);
    EXPECT_EQ(table.find(0x60022)->fields.size(), 0U);
}

TEST(EventFile, GivesEventsByEachOfTheirIdentifiersAndByName) {
    const EventTable table = readEvents(kTelevision);
    const Event* const block = table.named("LAMPBLOCK");
    ASSERT_NE(block, nullptr);
    EXPECT_EQ(table.find(0x120000), block);
    EXPECT_EQ(table.find(0x120009), block);
    EXPECT_EQ(table.find(0x12000A), nullptr);
    EXPECT_EQ(table.named("lamp"), nullptr);
}

TEST(EventFile, MayStayBehindItsText) {
    const EventTable copy = [] {
        const EventTable table = readEvents(std::string(kTelevision));
        return table;
    }();
    EXPECT_STREQ(copy.find(0x60021)->fields[0].name, "name");
}

struct Wrong {
    const char* old;
    const char* changed;
    std::size_t line;
    const char* message;
};

constexpr char kNoIdentifier[] =
    "' is neither a number nor MODULE+NUMBER with a module of KELU_EM_MODE_E and a number from 0 to 0xFFFF";

const Wrong kWrong[] = {
    {"## Events", "## Things", 12, "unknown section 'Things', expected one of: Events, Enumerations"},
    {"## Events", "## Enumerations", 12, "section 'Enumerations' stands twice"},
    {"Words before", "| a table |\n", 3, "a table outside of any known section"},
    {"| when |", "| then |", 14, "unknown column 'then', expected: identifier | event | payload | when"},
    {"| when |", "| event |", 14, "column 'event' stands twice"},
    {"| payload | when |\n|:---|---:|---|", "| when |\n|:---|---:|", 14, "missing column 'payload'"},
    {"| - | All", "| All", 19, "3 cells, but the table has 4 columns"},
    {"| - | All", "| | All", 19, "empty cell in column 'payload', write - for nothing"},
    {"lampNamed |", "LampNamed |", 17, "event 'LampNamed' is not a name such as volumeChanged"},
    {"lampNamed |", "lampswitched |", 17, "event lampswitched stands on line 16 already"},
    {"0x60021", "0x120005..0x120006", 18,
     "identifier KELU_EM_MODE_TTX+0..KELU_EM_MODE_TTX+9 is that of lampNamed on line 17"},
    {"0x60021", "5", 17, "the upper half of identifier 5 is not a module of KELU_EM_MODE_E"},
    {"0x60021", "0x60022..0x60021", 17, "the range 0x60022..0x60021 is empty"},
    {"0x60021", "0x6FFFF..0x70000", 17, "the range 0x6FFFF..0x70000 goes beyond its module"},
    {"name:text", "name", 17, "field 'name' is not NAME:TYPE"},
    {"name:text", "name:text,", 17, "field '' is not NAME:TYPE"},
    {"name:text", "1name:text", 17, "field '1name:text' is not NAME:TYPE"},
    {"name:text", "name:text, more:int32", 17, "field name takes the rest of the payload and must be the last field"},
    {"kind:uint8", "lamp:uint8", 16, "field lamp stands twice"},
    {"KELU_TV_SRC_E", "KELU_TV_SRC", 16,
     "type 'KELU_TV_SRC' is neither an enumeration nor one of: int8, uint8, int16, uint16, int32, bool, text, bytes"},
    {"MY_LAMP_ON", "MY_LAMP_OFF", 10, "the enumerator MY_LAMP_OFF exists already"},
    {"MY_LAMP_ON", "KELU_TV_SRC_HDMI1", 10, "the enumerator KELU_TV_SRC_HDMI1 exists already"},
    {"MY_LAMP_ON", "on", 10, "'on' is not a name of capital letters, digits and underscores"},
    {"MY_LAMP_E | MY_LAMP_ON", "KELU_TV_SRC_E | MY_LAMP_ON", 10,
     "KELU_TV_SRC_E is an enumeration of the public headers already"},
    {"0x10 |", "0x80000000 |", 10, "value '0x80000000' is not a number from 0 to 2147483647"},
};

/** `LINE: what is wrong`; empty when nothing is. */
std::string complaintAbout(const std::string& text) {
    try {
        readEvents(text);
        return "";
    } catch (const LineError& error) {
        return std::to_string(error.line()) + ": " + error.what();
    }
}

TEST(EventFile, SaysWhatIsWrongAndOnWhichLine) {
    for (const Wrong& wrong : kWrong) {
        std::string text = kTelevision;
        const std::size_t at = text.find(wrong.old);
        ASSERT_NE(at, std::string::npos) << wrong.old;
        text.replace(at, std::string(wrong.old).size(), wrong.changed);
        const std::string message = std::to_string(wrong.line) + ": " + wrong.message;
        EXPECT_EQ(complaintAbout(text).substr(0, message.size()), message) << wrong.changed;
    }
}

TEST(EventFile, RefusesIdentifiersOfNoModule) {
    for (const char* const wrong :
         {"KELU_EM_MODE_VOLUME", "KELU_EM_MODE_BUTT+1", "VOLUME+1", "KELU_EM_MODE_VOLUME+65536", "KELU_EM_MODE_VOLUME+",
          "-1", "0x", "010", "4294967296"}) {
        std::string text = kTelevision;
        text.replace(text.find("0x60021"), 7, wrong);
        EXPECT_EQ(complaintAbout(text), std::string("17: identifier '") + wrong + kNoIdentifier);
    }
}

TEST(EventFile, RefusesATextWithoutEvents) {
    const std::string complaint = "1: there is no table of events below a heading '## Events'";
    EXPECT_EQ(complaintAbout(""), complaint);
    EXPECT_EQ(complaintAbout("## Events\n\nNone.\n"), complaint);
}

TEST(EventFile, NamesTheFile) {
    const std::string path = ::testing::TempDir() + "events.md";
    const auto complaint = [&path] {
        try {
            readEventFile(path);
            return std::string();
        } catch (const EventFileError& error) {
            return std::string(error.what());
        }
    };
    EXPECT_EQ(complaint(), "cannot read " + path + ": No such file or directory");
    std::ofstream(path) << "## Things\n";
    EXPECT_EQ(complaint(), path + ":1: unknown section 'Things', expected one of: Events, Enumerations");
    std::ofstream(path) << kTelevision;
    EXPECT_EQ(complaint(), "");
    std::filesystem::remove(path);
    ASSERT_EQ(::mkfifo(path.c_str(), 0600), 0);
    EXPECT_EQ(complaint(), "cannot read " + path + ": it must be a regular file of at most 1048576 bytes");
    std::filesystem::remove(path);
}

TEST(SimulatedEvents, AreReadTheSameAtBuildTimeAndAtRunTime) {
    const EventTable read = readEventFile(KELUTV_EVENTS_TABLE);
    const EventTable built(simulatedEvents());
    EXPECT_EQ(read.names(), built.names());
    for (const Event& event : simulatedEvents()) {
        const Event* const same = read.named(event.name);
        ASSERT_NE(same, nullptr) << event.name;
        EXPECT_EQ(same->first, event.first) << event.name;
        EXPECT_EQ(same->last, event.last) << event.name;
        EXPECT_STREQ(same->when, event.when);
        ASSERT_EQ(same->fields.size(), event.fields.size()) << event.name;
        for (std::size_t i = 0; i < event.fields.size(); ++i) {
            EXPECT_STREQ(same->fields[i].name, event.fields[i].name);
            EXPECT_EQ(same->fields[i].type, event.fields[i].type);
            ASSERT_EQ(same->fields[i].names != nullptr, event.fields[i].names != nullptr);
            if (event.fields[i].names != nullptr) {
                EXPECT_STREQ(same->fields[i].names->name, event.fields[i].names->name);
                EXPECT_EQ(same->fields[i].names->values.size(), event.fields[i].names->values.size());
            }
        }
    }
}

} // namespace

} // namespace kelutv::wire
