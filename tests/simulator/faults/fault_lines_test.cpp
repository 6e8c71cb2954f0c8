// The text of faults: what goes in comes out, and what makes no sense is refused.

#include "simulator/faults/Faults.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace kelutv::simulator {

namespace {

using Lines = std::vector<std::string>;

std::string complaintAbout(const std::string& line) {
    try {
        readFault(line);
        return "";
    } catch (const std::invalid_argument& error) {
        return error.what();
    }
}

TEST(FaultLines, AreListedAsGiven) {
    const Lines lines{
        "CMD_AUDIO_GETVOLUME error -5",
        "CMD_AUDIO_* nth 3 delay 200ms",
        "any from 1234 die before",
        "0x2009 die after",
        "8201 short 0",
        "CMDID_AUDIO_GET_MAX_VOLUME long 64 once",
        "*BARCODE unterminated times 3",
        "CMD_* count 2147483647",
        "CMD_AUDIO_GETVOLUME delay 1.5s times 2 from 77 nth 2",
    };
    Faults faults;
    Lines listed;
    for (const std::string& line : lines) {
        EXPECT_TRUE(faults.add(readFault(line)));
        listed.push_back("fault " + line);
    }
    EXPECT_EQ(faults.list(), listed);
    faults.clear();
    EXPECT_EQ(faults.list(), Lines{});
}

TEST(FaultLines, LoseSuperfluousBlanks) {
    Faults faults;
    EXPECT_TRUE(faults.add(readFault("  any\terror   -5 ")));
    EXPECT_EQ(faults.list(), Lines{"fault any error -5"});
}

TEST(FaultLines, AreForgottenWhenTheyHaveHappened) {
    Faults faults;
    EXPECT_TRUE(faults.add(readFault("any nth 2 times 2 error -5")));
    EXPECT_TRUE(faults.add(readFault("any from 99 error -6")));
    const wire::Request request;
    EXPECT_EQ(faults.meet(request, 1).size(), 0U);
    EXPECT_EQ(faults.meet(request, 1).size(), 1U);
    EXPECT_EQ(faults.list().size(), 2U);
    EXPECT_EQ(faults.meet(request, 99).size(), 2U);
    EXPECT_EQ(faults.list(), Lines{"fault any from 99 error -6"});
}

TEST(FaultLines, AreAThousandAtMost) {
    Faults faults;
    for (int i = 0; i < 1000; ++i) {
        EXPECT_TRUE(faults.add(readFault("any error -5")));
    }
    EXPECT_FALSE(faults.add(readFault("any error -5")));
    EXPECT_EQ(faults.list().size(), 1000U);
    faults.clear();
    EXPECT_TRUE(faults.add(readFault("any error -5")));
}

TEST(FaultLines, ThatMakeNoSenseAreRefused) {
    const std::string effects =
        "error NUMBER, delay TIME, die before, die after, short BYTES, long BYTES, unterminated, count NUMBER";
    const std::vector<std::pair<std::string, std::string>> lines{
        {"", "a fault begins with the command or item that it is for, or with any"},
        {"any", "the fault does not say what goes wrong: " + effects},
        {"any nth 3", "the fault does not say what goes wrong: " + effects},
        {"CMD_AUDIO_SETVOLUNE error -5",
         "there is no command or item 'CMD_AUDIO_SETVOLUNE'; nearest: CMD_AUDIO_SETVOLUME, CMD_AUDIO_GETVOLUME, "
         "CMD_AUDIO_SETVOLUME_C, CMD_AUDIO_SETMUTE, CMD_AUDIO_GETMUTE"},
        {"CMD_NOTHING_* error -5", "there is no command or item 'CMD_NOTHING_*'"},
        {"0x99999 error -5", "there is no command 0x99999"},
        {"any eror -5", "a fault has no clause 'eror'; nearest: error; allowed: from PID, nth N, once, times N and "
                        "one of " +
                            effects},
        {"any error", "error takes a number from -2147483648 to 2147483647"},
        {"any error five", "error takes a number from -2147483648 to 2147483647, not 'five'"},
        {"any error 2147483648", "error takes a number from -2147483648 to 2147483647, not '2147483648'"},
        {"any error -5 short 4", "'short' repeats or contradicts an earlier clause"},
        {"any error -5 once times 2", "'times' repeats or contradicts an earlier clause"},
        {"any nth 0 error -5", "nth takes a number from 1 to 2147483647, not '0'"},
        {"any from self error -5", "from takes a number from 1 to 2147483647, not 'self'"},
        {"any delay 200", "delay takes a time from 0ms to 3600s, like 200ms or 1.5s, not '200'"},
        {"any delay 2h", "delay takes a time from 0ms to 3600s, like 200ms or 1.5s, not '2h'"},
        {"any delay 3601s", "delay takes a time from 0ms to 3600s, like 200ms or 1.5s, not '3601s'"},
        {"any die", "die takes before or after"},
        {"any die now", "die takes before or after, not 'now'"},
        {"any short -1", "short takes a number from 0 to 65536, not '-1'"},
        {"any long 65537", "long takes a number from 1 to 65536, not '65537'"},
        {"any unterminated 3",
         "a fault has no clause '3'; allowed: from PID, nth N, once, times N and one of " + effects},
    };
    for (const auto& [line, complaint] : lines) {
        EXPECT_EQ(complaintAbout(line), complaint) << line;
    }
}

} // namespace

} // namespace kelutv::simulator
