#include "support/Pattern.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace {

struct Name {
    std::string text;
    int value;
};

struct Range {
    int first;
    int last;
};

std::vector<Name> namesOf(const std::string& header) {
    std::ifstream file(std::string(KELUTV_HEADER_DIR "/") + header);
    EXPECT_TRUE(file.is_open()) << header;
    static const kelutv::test::Pattern kEnumerator(R"(^\s*(\w+) = (0x[0-9A-F]+),)");
    std::vector<Name> names;
    for (std::string line; std::getline(file, line);) {
        for (const auto& groups : kEnumerator.findAll(line)) {
            names.push_back({groups[1], std::stoi(groups[2], nullptr, 16)});
        }
    }
    return names;
}

bool inRange(const Name& name, const Range& range) { return name.value >= range.first && name.value <= range.last; }

int countIn(const std::vector<Name>& names, const Range& range) {
    return static_cast<int>(
        std::count_if(names.begin(), names.end(), [&](const Name& name) { return inRange(name, range); }));
}

void expectAscending(const std::vector<Name>& names) {
    for (size_t i = 1; i < names.size(); ++i) {
        EXPECT_LT(names[i - 1].value, names[i].value) << names[i - 1].text << " before " << names[i].text;
    }
}

TEST(Commands, ValuesAscendAndNoneIsTwice) { expectAscending(namesOf("commands.h")); }

TEST(Commands, EveryBlockHoldsItsOwnNumberAndNoneIsOutside) {
    struct Block {
        Range range;
        int names;
    };
    const Block blocks[] = {{{0x1000, 0x1094}, 137}, {{0x2000, 0x2070}, 98},  {{0x3000, 0x3012}, 15},
                            {{0x4000, 0x400C}, 9},   {{0x5000, 0x501E}, 8},   {{0x6000, 0x6107}, 49},
                            {{0x7000, 0x701C}, 26},  {{0x8000, 0x8101}, 66},  {{0x9000, 0x90E0}, 184},
                            {{0xC001, 0xC00F}, 15},  {{0xD001, 0xD006}, 6},   {{0xE001, 0xE004}, 4},
                            {{0xF000, 0xF100}, 75},  {{0x10001, 0x1000C}, 12}};
    const std::vector<Name> names = namesOf("commands.h");
    int inBlocks = 0;
    for (const Block& block : blocks) {
        EXPECT_EQ(countIn(names, block.range), block.names) << std::hex << block.range.first;
        inBlocks += countIn(names, block.range);
    }
    EXPECT_EQ(inBlocks, static_cast<int>(names.size()));
}

TEST(Commands, GapsStayEmpty) {
    const std::vector<Range> gaps = {{0, 0xFFF},       {0x104B, 0x104C}, {0x206A, 0x206F},  {0x602C, 0x6102},
                                     {0x801A, 0x8029}, {0x8055, 0x80FF}, {0x9049, 0x9049},  {0x905E, 0x905E},
                                     {0x90D1, 0x90DF}, {0xA000, 0xC000}, {0xD000, 0xD000},  {0xE000, 0xE000},
                                     {0xF001, 0xF00C}, {0xF056, 0xF0FF}, {0x10000, 0x10000}};
    const std::vector<Name> names = namesOf("commands.h");
    for (const Range& gap : gaps) {
        EXPECT_EQ(countIn(names, gap), 0) << std::hex << gap.first << " to " << gap.last;
    }
}

TEST(Commands, TwentyOneNamesAreSpelledFacotry) {
    const std::vector<Name> names = namesOf("commands.h");
    EXPECT_EQ(std::count_if(names.begin(), names.end(),
                            [](const Name& name) { return name.text.rfind("CMD_FACOTRY_", 0) == 0; }),
              21);
}

TEST(Items, EveryNameIsThere) { EXPECT_EQ(namesOf("items.h").size(), 166U); }

TEST(Items, ValuesAscendAndNoneIsTwice) { expectAscending(namesOf("items.h")); }

TEST(Items, NoneRepeatsACommandName) {
    const std::vector<Name> commands = namesOf("commands.h");
    for (const Name& item : namesOf("items.h")) {
        EXPECT_TRUE(std::none_of(commands.begin(), commands.end(), [&](const Name& c) { return c.text == item.text; }))
            << item.text;
    }
}

TEST(Events, ModulesAreMultiplesOfTheirStep) {
    const std::vector<Name> modules = namesOf("events.h");
    ASSERT_EQ(modules.size(), 28U);
    expectAscending(modules);
    EXPECT_TRUE(std::all_of(modules.begin(), std::prev(modules.end()),
                            [](const Name& module) { return module.value % 0x10000 == 0; }));
}

} // namespace
