#include "service/ReplyForm.h"

#include <gtest/gtest.h>

#include <cstddef>

namespace kelutv::service {

namespace {

using wire::Encoding;
using wire::Operation;
using wire::Shape;

constexpr wire::StateRule kNoRule{wire::StateRule::Access::None, nullptr, {}, {}};
constexpr int kFirstItem[] = {0};
constexpr wire::ReplyField kNumber[] = {{Encoding::Int32, "value", nullptr, 1}};
constexpr wire::ReplyField kText[] = {{Encoding::CString, "name", nullptr, 1}};
constexpr wire::ReplyField kTexts[] = {{Encoding::CString, "outputs", nullptr, wire::kRestOfReply}};
constexpr wire::ReplyField kReal[] = {{Encoding::Double, "gamma", nullptr, 1}};
constexpr wire::ReplyField kRecord[] = {{Encoding::Int32, "gain", nullptr, 1}, {Encoding::Double, "step", nullptr, 1}};
constexpr wire::ReplyField kCounted[] = {{Encoding::Int32, "n", nullptr, wire::kCountOfRest},
                                         {Encoding::Ints, "points", nullptr, wire::kRestOfReply}};
constexpr wire::ReplyField kAsked[] = {{Encoding::Ints, "block", nullptr, wire::kRestOfReply, kFirstItem}};

constexpr Operation kSet{{}, Shape::Status, {}, kNoRule};
constexpr Operation kGetNumber{{}, Shape::Number, kNumber, kNoRule};
constexpr Operation kGetText{{}, Shape::Parcel, kText, kNoRule};
constexpr Operation kGetTexts{{}, Shape::Parcel, kTexts, kNoRule};
constexpr Operation kGetReal{{}, Shape::Parcel, kReal, kNoRule};
constexpr Operation kGetRecord{{}, Shape::Parcel, kRecord, kNoRule};
constexpr Operation kGetRecords{{}, Shape::Parcel, kRecord, kNoRule, true};
constexpr Operation kGetCounted{{}, Shape::Parcel, kCounted, kNoRule};
constexpr Operation kGetBlock{{}, Shape::Parcel, kAsked, kNoRule};

std::string flawIn(const Operation& operation, const wire::Reply& reply, const wire::Arguments& arguments = {}) {
    wire::Request request;
    request.operation = &operation;
    request.arguments = arguments;
    return flawOf(request, reply);
}

std::string flawOfHolding(const Operation& operation, const wire::Values& values,
                          const wire::Arguments& arguments = {}) {
    return flawIn(operation, replyHolding(operation, values), arguments);
}

TEST(ReplyForm, takesWhatHasTheFormOfTheCatalogue) {
    EXPECT_EQ(flawOfHolding(kSet, {}), "");
    EXPECT_EQ(flawOfHolding(kGetNumber, {7}), "");
    EXPECT_EQ(flawOfHolding(kGetText, {"disc"}), "");
    EXPECT_EQ(flawOfHolding(kGetTexts, {}), "");
    EXPECT_EQ(flawOfHolding(kGetTexts, {"speaker", "arc"}), "");
    EXPECT_EQ(flawOfHolding(kGetReal, {2.2}), "");
    EXPECT_EQ(flawOfHolding(kGetRecord, {7, 0.5}), "");
    EXPECT_EQ(flawOfHolding(kGetCounted, {}), "");
    EXPECT_EQ(flawOfHolding(kGetCounted, {1, 2, 3}), "");
    EXPECT_EQ(flawOfHolding(kGetBlock, {1, 2}, {{2}}), "");
}

TEST(ReplyForm, takesRecordsOfAnyNumberInAList) {
    EXPECT_EQ(flawIn(kGetRecords, {}), "");
    EXPECT_EQ(flawOfHolding(kGetRecords, {7, 0.5, 8, 0.25}), "");
    EXPECT_EQ(flawOfHolding(kGetRecords, {7, 0.5, 8}), "step has 0 of 1 values");
}

TEST(ReplyForm, leadsABlockByItsLength) {
    EXPECT_EQ(replyHolding(kGetCounted, {5, 6}).fields, (std::vector<wire::Values>{{2}, {5, 6}}));
    EXPECT_EQ(flawIn(kGetCounted, {0, "", {{3}, {5, 6}}}), "points has 2 of 3 values");
}

TEST(ReplyForm, missesWhatIsNotThere) {
    EXPECT_EQ(flawOfHolding(kGetNumber, {}), "value has 0 of 1 values");
    EXPECT_EQ(flawOfHolding(kGetRecord, {7}), "step has 0 of 1 values");
    EXPECT_EQ(flawOfHolding(kGetBlock, {1}, {{2}}), "block has 1 of 2 values");
    EXPECT_EQ(flawIn(kGetNumber, {}), "0 fields instead of 1");
}

TEST(ReplyForm, refusesWhatIsTooMuch) {
    EXPECT_EQ(flawOfHolding(kGetNumber, {7, 8}), "2 fields instead of 1");
    EXPECT_EQ(flawOfHolding(kSet, {7}), "something stands behind a result word that is the whole answer");
    EXPECT_EQ(flawIn(kGetNumber, {-1, "", {{7}}}), "something stands behind a result word that is the whole answer");
    EXPECT_EQ(flawIn(kGetBlock, {0, "", {{1, 2, 3}}}, {{2}}), "block has 3 of 2 values");
}

TEST(ReplyForm, refusesValuesOfAnotherKind) {
    EXPECT_EQ(flawOfHolding(kGetNumber, {7.0}), "value is not an integer");
    EXPECT_EQ(flawOfHolding(kGetNumber, {"7"}), "value is not an integer");
    EXPECT_EQ(flawOfHolding(kGetReal, {2}), "gamma is not a real number");
    EXPECT_EQ(flawOfHolding(kGetText, {2}), "name is not a text without zeros in it");
    EXPECT_EQ(flawOfHolding(kGetText, {std::string("a\0b", 3)}), "name is not a text without zeros in it");
}

TEST(ReplyForm, leavesRefusalsAlone) {
    EXPECT_EQ(flawIn(kGetRecord, wire::replyTo({wire::Result::OutOfRange, "too loud"})), "");
}

TEST(ReplyForm, allowsLessThanARequestForMoreThanAReplyHolds) {
    EXPECT_EQ(flawOfHolding(kGetBlock, {1, 2}, {{static_cast<std::int32_t>(wire::kMostReplyValues) + 1}}), "");
}

} // namespace

} // namespace kelutv::service
