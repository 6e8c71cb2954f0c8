// Makes one operation again and again, each time with another of its allocations failing, from the one that the third
// argument numbers. Two lines tell of each: "starved NUMBER OUTCOME" and, of the same without a failure, "fed NUMBER
// OUTCOME". Ends once all allocations have been tried.

#include "client/memory/Operation.h"
#include "client/memory/Starvation.h"

#include <kelutv/link/TVBaseClient.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace kelutv::test {

namespace {

constexpr int kMost = 1000;

void tell(const char* what, int number, const Seen& seen) {
    std::fprintf(stdout, "\n%s %d %s\n", what, number, seen.words().c_str());
    std::fflush(stdout);
}

/** Whether an allocation has failed. */
bool starve(const Operation& operation, int number, Failing failing) {
    Seen seen;
    bool felt = false;
    {
        const Starvation starvation(number, failing);
        operation.call(seen);
        felt = starvation.felt();
    }
    tell("starved", number, seen);
    return felt;
}

void feed(const Operation& operation, int number) {
    Seen seen;
    operation.call(seen);
    tell("fed", number, seen);
}

int run(const Operation& operation, Failing failing, int first) {
    if (!operation.connects) {
        android::TVBaseClient::self();
    }
    for (int number = first; number < kMost; ++number) {
        const bool felt = starve(operation, number, failing);
        feed(operation, number);
        if (!felt) {
            std::puts("all");
            return EXIT_SUCCESS;
        }
        if (operation.connects) {
            return EXIT_SUCCESS;
        }
    }
    return EXIT_FAILURE;
}

} // namespace

} // namespace kelutv::test

int main(int, char** argv) {
    using namespace kelutv::test;
    const auto& all = operations();
    const auto operation = std::find_if(all.begin(), all.end(), [&](const auto& one) { return one.name == argv[1]; });
    const Failing failing = std::strcmp(argv[2], "once") == 0 ? Failing::Once : Failing::FromThenOn;
    return operation == all.end() ? EXIT_FAILURE : run(*operation, failing, std::atoi(argv[3]));
}
