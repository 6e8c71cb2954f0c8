#include "support/RuntimeDir.h"
#include "torture/Report.h"
#include "torture/Size.h"
#include "torture/matrix/FaultTables.h"
#include "torture/matrix/LinkFaults.h"
#include "torture/operations/EveryShape.h"

#include <gtest/gtest.h>

#include <set>

namespace kelutv::test {
namespace {

/** The fault's name: what stands before the colon of its row. */
std::string nameOf(const Row& row) {
    const std::string cell = cellOf(row, "fault");
    return cell.substr(0, cell.find(':'));
}

std::string expected(const Row& row, const char* column, const Operation& operation) {
    return cellOf(row, column) == "right" ? operation.right : operation.failures.front();
}

/** The operations of the table of answers; of these every one, or in the sample ever another share. */
std::vector<Operation> operationsFor(std::size_t fault) {
    std::set<std::string> names;
    for (const Row& row : faultTable("operation")) {
        names.insert(cellOf(row, "operation"));
    }
    const std::size_t share = ofSize<std::size_t>(8, 1, 1);
    std::vector<Operation> all;
    std::size_t number = fault;
    for (const Operation& operation : everyShape()) {
        if (names.count(operation.name) > 0 && number++ % share == 0) {
            all.push_back(operation);
        }
    }
    return all;
}

TEST(LinkFaults, giveWhatTheTableSays) {
    std::size_t fault = 0;
    int cells = 0;
    for (const Row& row : faultTable("fault")) {
        for (const Operation& operation : operationsFor(fault++)) {
            if (nameOf(row) == "unasked" && operation.exchanges.size() > 1) {
                continue;
            }
            ++cells;
            const RuntimeDir runtimeDir;
            const FaultyCalls calls = LinkFault(nameOf(row), operation).make();
            EXPECT_EQ(calls.call, expected(row, "the call", operation)) << nameOf(row) << ", " << operation.name;
            EXPECT_EQ(calls.next, expected(row, "the next one", operation)) << nameOf(row) << ", " << operation.name;
        }
    }
    EXPECT_GT(cells, 0);
    report("faults of the link: %d cells of the table", cells);
}

} // namespace
} // namespace kelutv::test
