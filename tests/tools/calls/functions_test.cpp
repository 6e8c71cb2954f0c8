#include "simulator/Simulator.h"
#include "support/Pattern.h"
#include "tools/Samples.h"
#include "tools/Tool.h"
#include "tools/kelutv/calls/Call.h"
#include "tools/kelutv/calls/Thunks.h"
#include "tools/kelutv/text/FunctionNamed.h"
#include "tools/kelutv/text/Hex.h"
#include "wire/text/FunctionNames.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <set>
#include <string>

namespace kelutv::test {
namespace {

SimulatorEnvironment& environmentOfFunctions = SimulatorEnvironment::install();

/** The exported symbols that match, by what the parentheses of the pattern hold. */
std::set<std::string> exportedSymbols(const std::string& pattern) {
    std::ifstream list(KELUTV_SYMBOL_LIST);
    EXPECT_TRUE(list.is_open());
    const Pattern wanted(pattern);
    std::set<std::string> symbols;
    for (std::string line; std::getline(list, line);) {
        if (const auto groups = wanted.match(line); !groups.empty()) {
            symbols.insert(groups[1]);
        }
    }
    return symbols;
}

TEST(Functions, holdEveryCFunctionAndEveryMethodWithoutOne) {
    std::set<std::string> functions;
    std::set<std::string> methods;
    for (const wire::Function& function : wire::allFunctions()) {
        const bool isMethod = std::string(function.name).find("::") != std::string::npos;
        EXPECT_TRUE((isMethod ? methods : functions).insert(function.name).second)
            << function.name << " is there twice";
    }
    EXPECT_EQ(functions, exportedSymbols(R"(kelutv/linux_\w+\.h: (\w+))"));
    const std::set<std::string> exported = exportedSymbols(R"(kelutv/\w+\.h: (\w+::\w+)\(.*)");
    EXPECT_TRUE(std::includes(exported.begin(), exported.end(), methods.begin(), methods.end()));
    EXPECT_EQ(methods.count("Audio::setInputVolume"), 1U);
    EXPECT_EQ(methods.count("Audio::setVolume"), 0U);
}

TEST(Functions, haveACallEach) { EXPECT_EQ(tool::allThunks().size(), wire::allFunctions().size()); }

TEST(Functions, areFoundByTheirNames) {
    for (const wire::Function& function : wire::allFunctions()) {
        EXPECT_EQ(&tool::functionNamed(function.name), &function);
        const auto listed = wire::functionsMatching(function.shortName);
        EXPECT_NE(std::find(listed.begin(), listed.end(), &function), listed.end()) << function.name;
    }
    EXPECT_STREQ(tool::functionNamed("audio.setVolume").name, "linux_tv_Audio_setVolume");
    EXPECT_STREQ(tool::functionNamed("audio.setInputVolume").name, "Audio::setInputVolume");
}

TEST(Functions, areDescribed) {
    for (const wire::Function& function : wire::allFunctions()) {
        const wire::FunctionTexts& texts = *function.texts;
        EXPECT_STRNE(texts.brief, "") << function.name;
        EXPECT_TRUE(*texts.returns != '\0' || function.result.kind == wire::ValueKind::Nothing) << function.name;
        ASSERT_EQ(texts.parameters.size(), function.parameters.size()) << function.name;
        for (std::size_t i = 0; i < texts.parameters.size(); ++i) {
            EXPECT_STRNE(texts.parameters[i], "") << function.name << ' ' << function.parameters[i].name;
        }
        for (const wire::SentRequest& request : function.requests) {
            EXPECT_STRNE(request.reply, "") << function.name;
        }
    }
}

TEST(Functions, areFoundByWhatTheySend) {
    for (const wire::Function& function : wire::allFunctions()) {
        for (const wire::SentRequest& request : function.requests) {
            const auto senders = request.item == nullptr
                                     ? wire::functionsSending(request.commandValue)
                                     : wire::functionsSending(request.commandValue, request.itemValue);
            EXPECT_NE(std::find(senders.begin(), senders.end(), &function), senders.end()) << function.name;
        }
    }
}

/** These sample arguments are refused: no such item or device, an address of the wrong length, nothing to be had. */
const std::set<std::string> kRefused{
    "linux_tv_Audio_setAudioItemValue",
    "linux_tv_Audio_getAudioItemValue",
    "linux_tv_Factory_setFactoryItemValue",
    "linux_tv_Factory_getFactoryItemValue",
    "linux_tv_Factory_setFactoryItemStrValue",
    "linux_tv_Factory_getFactoryItemStrValue",
    "linux_tv_Factory_setMacAddress",
    "linux_tv_HdmiCEC_selectDevice",
    "linux_tv_Picture_setPictureItemValue",
    "linux_tv_Picture_getPictureItemValue",
    "Picture::setDolbyHdrPicMode",
    "Picture::getDolbyHdrPicMode",
    "linux_tv_SystemSetting_setSystemItemValue",
    "linux_tv_SystemSetting_getSystemItemValue",
    "linux_tv_SystemSetting_setSystemItemStrValue",
    "linux_tv_SystemSetting_getSystemItemStrValue",
    "linux_tv_Video_setVideoItemValue",
    "linux_tv_Video_getVideoItemValue",
};

/** The timing, without a signal; a list without entries. */
const std::set<std::string> kNothingWritten{
    "linux_tv_SourceManager_getTimingInfo",
    "linux_tv_Picture_getBrightnessHistogram",
};

/** Some have the television write to the path that they are given. */
TEST(Functions, writeNothingWhereTheTestsAre) {
    const std::string process = std::to_string(environmentOfFunctions.simulator().process().pid());
    EXPECT_TRUE(std::filesystem::equivalent("/proc/" + process + "/cwd", std::getenv("KQDROID_RUNTIME_DIR")));
}

TEST(Functions, areAnsweredByTheSimulator) {
    for (const wire::Function& function : wire::allFunctions()) {
        SCOPED_TRACE(function.name);
        const tool::CallResult call = tool::tryFunction(function, sampleArguments(function));
        EXPECT_EQ(call.transactions.size(), function.requests.size());
        EXPECT_NE(call.result.isNull(), function.result.kind != wire::ValueKind::Nothing);
        EXPECT_EQ(!call.failure.empty(), kRefused.count(function.name) == 1) << call.failure;
        for (const auto& [name, value] : call.outputs.members()) {
            EXPECT_TRUE(!value.isNull() || !call.failure.empty() || kNothingWritten.count(function.name) == 1)
                << name << " was not written";
        }
    }
}

/** The program itself, for a part of them: what it prints is what was found here. */
TEST(Functions, areDescribedEncodedAndCalledByTheProgram) {
    constexpr std::size_t kStep = 48;
    for (std::size_t i = 0; i < wire::allFunctions().size(); i += kStep) {
        const wire::Function& function = wire::allFunctions()[i];
        SCOPED_TRACE(function.name);
        const ToolRun described = runTool({"describe", function.name});
        EXPECT_EQ(described.output.find(function.signature), 0U);

        std::vector<std::string> words = sampleArguments(function);
        std::string encoded;
        for (const auto& request : tool::requestsOf(function, words)) {
            encoded += tool::hexOf(request) + '\n';
        }
        words.insert(words.begin(), {"encode", function.name});
        EXPECT_EQ(runTool(words).output, encoded);
        words[0] = "call";
        EXPECT_EQ(runTool(words).exit, kRefused.count(function.name) == 1 ? 4 : 0);
    }
}

} // namespace
} // namespace kelutv::test
