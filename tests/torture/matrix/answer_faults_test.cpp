#include "support/RuntimeDir.h"
#include "torture/Report.h"
#include "torture/matrix/FaultTables.h"
#include "torture/operations/EveryShape.h"
#include "torture/processes/PlainService.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>

namespace kelutv::test {
namespace {

constexpr char kNotTried[] = "-";
constexpr std::int32_t kHugeCount = 2147483647;
constexpr std::size_t kCountOffset = 4;
constexpr std::size_t kMostOperations = 64;

Bytes shorter(Bytes reply) {
    reply.resize(reply.size() - 4);
    return reply;
}

Bytes longer(Bytes reply) {
    const Bytes more = replyOf({65, 66});
    reply.insert(reply.end(), more.begin(), more.end());
    return reply;
}

Bytes withHugeCount(Bytes reply) {
    std::memcpy(reply.data() + kCountOffset, &kHugeCount, sizeof kHugeCount);
    return reply;
}

Bytes withoutTerminator(Bytes reply) {
    while (reply.back() == 0) {
        reply.pop_back();
    }
    return reply;
}

/** The answer that the fault, a column of the table, makes of the right one. */
Bytes faulty(const std::string& fault, const Bytes& right, bool text) {
    if (fault == "right") {
        return right;
    }
    if (fault == "refused") {
        return replyOf({7});
    }
    if (fault == "empty") {
        return {};
    }
    if (fault == "short") {
        return shorter(right);
    }
    if (fault == "long") {
        return longer(right);
    }
    if (fault == "wrong type") {
        return text ? replyOf({0, 35, 36}) : Wire::reply().i32(0).cstr("wrong").bytes();
    }
    return fault == "huge count" ? withHugeCount(right) : withoutTerminator(right);
}

/** What one client got, an outcome for each operation. */
struct Outcomes {
    std::array<Outcome, kMostOperations> outcomes;
    std::atomic<std::size_t> count{0};
};

class AnswerFaults : public ::testing::TestWithParam<const char*> {
protected:
    /** The operation that a row is of. */
    static Operation operationOf(const Row& row) {
        const std::string name = cellOf(row, "operation");
        for (const Operation& operation : everyShape()) {
            if (operation.name == name) {
                return operation;
            }
        }
        throw std::runtime_error("there is no operation " + name);
    }

    const RuntimeDir mRuntimeDir;
};

TEST_P(AnswerFaults, giveWhatTheTableSays) {
    const std::string fault = GetParam();
    std::vector<Operation> operations;
    std::vector<std::string> expected;
    for (const Row& row : faultTable("operation")) {
        if (cellOf(row, fault) != kNotTried) {
            Operation operation = operationOf(row);
            for (Exchange& exchange : operation.exchanges) {
                exchange.reply = faulty(fault, exchange.reply, cellOf(row, "no terminator") != kNotTried);
            }
            operations.push_back(operation);
            expected.push_back(cellOf(row, fault));
        }
    }
    ASSERT_LE(operations.size(), kMostOperations);
    PlainService service(operations);
    service.start();
    const Shared<Outcomes> found;
    ForkedProcess client([&] {
        for (const Operation& operation : operations) {
            operation.call(found->outcomes.at(found->count));
            ++found->count;
        }
    });
    EXPECT_EQ(client.wait(), 0) << client.text();
    EXPECT_EQ(service.wrongRequests(), 0) << service.firstWrongRequest();
    for (std::size_t i = 0; i < operations.size(); ++i) {
        EXPECT_EQ(found->outcomes.at(i).text(), expected[i]) << operations[i].name;
    }
    report("faults of the answer: %-13s %zu cells of the table", fault.c_str(), operations.size());
}

/** The table is of operations that give different things, and has what the other tests take for right and failure. */
TEST(AnswerFaultsTable, agreesWithTheOperations) {
    const std::vector<Operation> operations = everyShape();
    for (const Row& row : faultTable("operation")) {
        const std::string name = cellOf(row, "operation");
        const auto found = std::find_if(operations.begin(), operations.end(),
                                        [&](const Operation& operation) { return operation.name == name; });
        ASSERT_NE(found, operations.end()) << name;
        EXPECT_EQ(cellOf(row, "right"), found->right) << name;
        EXPECT_EQ(cellOf(row, "failure"), found->failures.front()) << name;
    }
}

std::string nameOf(const ::testing::TestParamInfo<const char*>& info) {
    std::string name = info.param;
    std::replace(name.begin(), name.end(), ' ', '_');
    return name;
}

INSTANTIATE_TEST_SUITE_P(Each, AnswerFaults,
                         ::testing::Values("right", "refused", "empty", "short", "long", "wrong type", "huge count",
                                           "no terminator"),
                         nameOf);

} // namespace
} // namespace kelutv::test
