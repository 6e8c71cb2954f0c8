#include "wire/text/Names.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace kelutv::wire {

namespace {

/** What is said of a word that names nothing. */
std::string complaintAbout(const Names& names, const std::string& word) {
    try {
        return "taken as " + std::to_string(names.valueOf(word));
    } catch (const UnknownName& error) {
        return error.what();
    }
}

class NamesTest : public ::testing::Test {
protected:
    const Names mNames{"MODE_E",
                       {{"A_MODE_VIVID", 1},
                        {"A_MODE_STANDARD", 2},
                        {"A_MODE_STANDARD_TWO", 3},
                        {"A_MODE_SOFT", 4},
                        {"ODD_ONE", 7},
                        {"A_MODE_BUTT", 8, true}}};
};

TEST_F(NamesTest, AreTakenInFullShortAndInPieces) {
    for (const char* const word : {"A_MODE_STANDARD", "a_mode_standard", "standard", "STANDARD"}) {
        EXPECT_EQ(mNames.valueOf(word), 2) << word;
    }
    for (const char* const word : {"standard_two", "standard-two", "standardtwo", "two", "rd_t"}) {
        EXPECT_EQ(mNames.valueOf(word), 3) << word;
    }
    EXPECT_EQ(mNames.valueOf("v"), 1);
    EXPECT_EQ(mNames.valueOf("oft"), 4);
    EXPECT_EQ(mNames.valueOf("odd_one"), 7);
}

TEST_F(NamesTest, SayWhatIsAllowed) {
    EXPECT_EQ(complaintAbout(mNames, "s"), "'s' may be standard, standard_two, soft");
    EXPECT_EQ(complaintAbout(mNames, "softt"),
              "'softt' is not one of vivid, standard, standard_two, soft, odd_one; nearest: soft");
    EXPECT_EQ(complaintAbout(mNames, ""), "'' is not one of vivid, standard, standard_two, soft, odd_one");
}

TEST_F(NamesTest, LeaveTheEndMarkerOut) {
    EXPECT_EQ(mNames.shortNames(), (std::vector<std::string>{"vivid", "standard", "standard_two", "soft", "odd_one"}));
    EXPECT_EQ(mNames.valueOf("butt"), 8);
    EXPECT_EQ(mNames.shortNameOf(8), "butt");
    EXPECT_EQ(complaintAbout(mNames, "but").rfind("'but' is not one of vivid", 0), 0U);
}

TEST_F(NamesTest, AreFoundByTheirValue) {
    EXPECT_EQ(mNames.shortNameOf(3), "standard_two");
    EXPECT_EQ(mNames.shortNameOf(5), "");
}

TEST(ShortNames, KeepWhatTellsTwoNamesApart) {
    const Names names("SWITCH_E", {{"SWITCH_ON", 1}, {"SWITCH_ON_TIMER", 2}});
    EXPECT_EQ(names.shortNames(), (std::vector<std::string>{"on", "on_timer"}));
}

TEST(ShortNames, ThatShareAValueAreNotAmbiguous) {
    const Names names("PORT_E", {{"PORT_ONE", 1}, {"PORT_ONE_OLD", 1}});
    EXPECT_EQ(names.valueOf("on"), 1);
    EXPECT_EQ(names.shortNameOf(1), "one");
}

TEST(ShortNames, AreCutWhenThereAreVeryMany) {
    std::vector<std::string> texts;
    for (int i = 0; i < 26; ++i) {
        texts.push_back(std::string("KEY_") + static_cast<char>('A' + i));
    }
    std::vector<Enumerator> enumerators;
    for (const std::string& text : texts) {
        enumerators.push_back({text.c_str(), static_cast<std::int32_t>(enumerators.size())});
    }
    const std::string listed = Names("KEY_E", enumerators).listed();
    EXPECT_EQ(listed.substr(listed.size() - 24), "w, x and 2 more of KEY_E");
}

TEST(Names, OfNothingNameNothing) { EXPECT_EQ(complaintAbout(Names("E", {}), "x"), "'x' is not one of "); }

TEST(Names, OfAnEnumerationAreMadeOnce) {
    static constexpr Enumerator kValues[] = {{"LEVEL_LOW", 1}, {"LEVEL_HIGH", 2}};
    static constexpr Enumeration kLevels{"LEVEL_E", kValues};
    EXPECT_EQ(&namesOf(kLevels), &namesOf(kLevels));
    EXPECT_EQ(namesOf(kLevels).valueOf("high"), 2);
}

} // namespace

} // namespace kelutv::wire
