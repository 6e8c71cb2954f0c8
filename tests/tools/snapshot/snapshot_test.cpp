#include "tools/snapshot/Snapshots.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>

namespace kelutv::test {
namespace {

using tool::Json;

std::string contentOf(const std::string& path) {
    std::ifstream file(path);
    return {std::istreambuf_iterator<char>(file), {}};
}

TEST_F(Snapshots, sayWhatIsNotAnsweredOnceAndGoOn) {
    sim("fault CMD_AUDIO_GETMUTE delay 3600s");
    run({"--quiet", "snapshot", "--limit", "1", "-o", file("all.json")});
    const Json all = read("all.json");
    EXPECT_EQ(entryOf(all, "missing", "audio.getMute[KELU_TV_AUDIO_CHANNEL_SPEAKER]")->at("reason"),
              Json("no answer within 1 s"));
    EXPECT_EQ(entryOf(all, "missing", "audio.getMute[KELU_TV_AUDIO_CHANNEL_SPDIF]")->at("reason"),
              Json("not asked: the operation was not answered under another key"));
    EXPECT_EQ(entryOf(all, "states", "video.mode3d")->at("result"), Json(0));
}

TEST_F(Snapshots, giveUpWhenNothingIsAnswered) {
    sim("fault any delay 3600s");
    const TestFolder folder;
    const std::string golden = folder.pathOf("golden.json");
    std::ofstream(golden) << "before";
    const ToolRun run = runTool({"snapshot", "--limit", "0.1", "-o", golden});
    EXPECT_EQ(run.exit, 5);
    EXPECT_EQ(run.error, "kelutv: nothing is answered any longer; --limit gives each answer more time\n");
    EXPECT_EQ(contentOf(golden), "before");
    std::filesystem::remove(golden);
    EXPECT_TRUE(std::filesystem::is_empty(folder.path()));
    const ToolRun nowhere = runTool({"snapshot", "--limit", "0.1", "-o", folder.pathOf("missing/golden.json")});
    EXPECT_EQ(nowhere.exit, 1) << "the path is tried before anything is read";
}

/** The first has four keys, of which one is asked for. */
TEST_F(Snapshots, giveUpWhenNothingIsAnsweredFromAnOperationWithKeysOn) {
    for (const char* const request :
         {"CMD_AUDIO_GETMUTE", "CMD_AUDIO_GETSPDIFOUTPUT", "CMD_AUDIO_GETSPDIFOUTPUTDELAY"}) {
        sim(std::string("fault ") + request + " delay 3600s");
    }
    EXPECT_EQ(runTool({"snapshot", "--limit", "0.5", "-o", file("all.json")}).exit, 5);
}

TEST_F(Snapshots, changeNothingAndDifferWhereValuesDoOrOneLacksAState) {
    // Its members stand in another order than the tool's.
    write("first.json", fresh().dump());
    EXPECT_EQ(diff("first.json", "first.json").exit, 0);
    sim("set audio.volume[speaker] = 35");
    sim("signal hdmi2 none");
    sim("fault CMD_AUDIO_GETSOUNDMODE error -5");
    const std::string before = runTool({"sim", "show"}).output;
    write("second.json", "before");
    std::filesystem::create_hard_link(file("second.json"), file("kept.json"));
    take("second.json");
    EXPECT_EQ(contentOf(file("kept.json")), "before") << "a file is replaced when the new one is whole";
    EXPECT_EQ(runTool({"sim", "show"}).output, before);
    const ToolRun all = diff("first.json", "second.json");
    EXPECT_EQ(all.exit, 1);
    EXPECT_EQ(all.output, "audio.soundMode: 0 (standard) -> (missing)\n"
                          "audio.volume[speaker]: 20 -> 35\n"
                          "sourcemanager.offlineSigStatus[hdmi2]: 1 -> 0\n"
                          "video.signalStatusSync[hdmi2]: 1 -> 0\n");
    EXPECT_EQ(all.error, "kelutv: 4 differences in 3410 states\n");
    EXPECT_NE(diff("second.json", "first.json").output.find("audio.soundMode: (missing) -> 0 (standard)\n"),
              std::string::npos);
    const ToolRun settings = diff("first.json", "second.json", {"--settings", "--ignore", "soundMode"});
    EXPECT_EQ(settings.exit, 1);
    EXPECT_EQ(settings.output, "audio.volume[speaker]: 20 -> 35\n");
    const auto exitIgnoring = [this](const std::string& pattern) {
        return diff("first.json", "second.json", {"--settings", "--ignore", "soundMode", "--ignore", pattern}).exit;
    };
    EXPECT_EQ(exitIgnoring("audio.volume[speaker]"), 0);
    EXPECT_EQ(exitIgnoring("audio.*"), 0);
    EXPECT_EQ(exitIgnoring("audio.mute"), 1);
}

TEST_F(Snapshots, differInDocumentsWithJson) {
    writeSome("first.json", {{"audio.soundMode", Json::array({0})}, {"audio.volume[speaker]", Json::array({20})}});
    writeSome("second.json", {{"audio.volume[speaker]", Json::array({35})}});
    std::istringstream lines(diff("first.json", "second.json", {"--json"}).output);
    std::string line;
    ASSERT_TRUE(std::getline(lines, line));
    EXPECT_EQ(parsedJson(line), (Json{{"first", Json::array({0})}, {"second", Json()}, {"state", "audio.soundMode"}}));
    ASSERT_TRUE(std::getline(lines, line));
    EXPECT_EQ(parsedJson(line).at("second"), Json::array({35}));
    ASSERT_TRUE(std::getline(lines, line));
    EXPECT_EQ(parsedJson(line), (Json{{"compared", 2}, {"differences", 2}}));
}

TEST_F(Snapshots, areRefusedWhenTheyAreNone) {
    write("none.json", "{\"format\": \"kelutv snapshot 1\", \"taken\": ");
    EXPECT_EQ(diff("none.json", "none.json").exit, 2);
    write("none.json", "{\"format\": \"another\"}");
    const ToolRun format = restore("none.json");
    EXPECT_EQ(format.exit, 2);
    EXPECT_NE(format.error.find("the format is 'another', not 'kelutv snapshot 1'"), std::string::npos) << format.error;
    write("none.json",
          "{\"format\": \"kelutv snapshot 1\", \"taken\": \"\", \"readable\": 1, \"held\": 1, \"missing\": [], "
          "\"states\": [{\"state\": \"audio.soundMode\", \"values\": [0], \"seconds\": 0, "
          "\"function\": \"linux_tv_Audio_setSoundMode\", \"arguments\": {}, \"result\": 0}]}");
    const ToolRun function = restore("none.json");
    EXPECT_EQ(function.exit, 2);
    EXPECT_NE(function.error.find("states[0]: 'linux_tv_Audio_setSoundMode' is no operation that reads"),
              std::string::npos)
        << function.error;
    write("none.json", std::string(100000, '['));
    EXPECT_EQ(restore("none.json").exit, 2);
    EXPECT_EQ(restore("missing.json").exit, 2);
}

TEST_F(Snapshots, areRestoredWithPatternsThatMeanWhatCanBePutBackAlone) {
    writeSome("some.json", {{"audio.soundMode", Json::array({0})}, {"factory.panelID", Json::array({"only read"})}});
    for (const char* const pattern : {"nothing.like.this", "factory.panelID"}) {
        const ToolRun only = restore("some.json", {"--only", pattern});
        EXPECT_EQ(only.exit, 2);
        EXPECT_NE(only.error.find("--only: no state of the file that can be put back matches '" + std::string(pattern) +
                                  '\''),
                  std::string::npos)
            << only.error;
    }
    const ToolRun dangerous = restore("some.json", {"--allow-dangerous", "audio.soundMode"});
    EXPECT_EQ(dangerous.exit, 2);
    EXPECT_NE(dangerous.error.find("--allow-dangerous: no dangerous state of the file that can be put back matches "
                                   "'audio.soundMode'"),
              std::string::npos)
        << dangerous.error;
}

/** As an unset variable of a script gives it. */
TEST_F(Snapshots, refuseAnEmptyPattern) {
    writeSome("some.json", {{"audio.soundMode", Json::array({0})}});
    const std::string some = file("some.json");
    for (const std::vector<std::string>& words :
         std::vector<std::vector<std::string>>{{"snapshot", "diff", some, some, "--ignore", ""},
                                               {"snapshot", "restore", some, "--dry-run", "--only", ""},
                                               {"snapshot", "restore", some, "--dry-run", "--allow-dangerous", ""}}) {
        const ToolRun run = runTool(words);
        EXPECT_EQ(run.exit, 2) << run.output;
        EXPECT_NE(run.error.find(words[words.size() - 2] + " takes the name of a state or a pattern, not ''"),
                  std::string::npos)
            << run.error;
    }
}

TEST_F(Snapshots, refuseOptionsOfTheCommandAboveThatWouldDoNothing) {
    writeSome("some.json", {{"audio.soundMode", Json::array({0})}});
    for (const std::vector<std::string>& words :
         {std::vector<std::string>{"restore", file("some.json"), "-o", file("backup.json")},
          {"-o", file("backup.json"), "restore", file("some.json")},
          {"diff", file("some.json"), file("some.json"), "-o", file("backup.json")},
          {"--limit", "1", "diff", file("some.json"), file("some.json")}}) {
        std::vector<std::string> line{"snapshot"};
        line.insert(line.end(), words.begin(), words.end());
        const ToolRun run = runTool(line);
        EXPECT_EQ(run.exit, 2);
        EXPECT_NE(run.error.find(" goes with 'kelutv snapshot' "), std::string::npos) << run.error;
    }
}

TEST_F(Snapshots, tellThatThereIsNoService) {
    writeSome("golden.json", {{"audio.soundMode", Json::array({1})}});
    turnOff();
    EXPECT_EQ(runTool({"snapshot", "-o", file("none.json")}).exit, 3);
    EXPECT_EQ(restore("golden.json").exit, 3);
    EXPECT_EQ(diff("golden.json", "golden.json").exit, 0);
}

} // namespace
} // namespace kelutv::test
