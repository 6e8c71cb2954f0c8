// Every request of the catalogue is changed on its way to the service, in one place at a time. The comparison of the
// wire test must notice each change.

#include "client/wire/Mutants.h"
#include "client/wire/OneRequest.h"
#include "client/wire/WireTest.h"
#include "support/Capture.h"
#include "support/Link.h"
#include "tools/interposition/Tap.h"

#include <binder/Parcel.h>

#include <gtest/gtest-spi.h>

#include <cstdio>
#include <cstdlib>
#include <map>

namespace kelutv::test {

namespace {

LinkEnvironment& environment = LinkEnvironment::install();

/** What goes out in place of the next request. */
const Bytes* replacement = nullptr;

int sendReplacement(const android::Parcel& /*request*/, android::Parcel* reply) {
    android::Parcel changed;
    const Bytes& bytes = *replacement;
    EXPECT_EQ(changed.setData(bytes.data(), bytes.size()), android::NO_ERROR);
    return environment.service().binder()->transact(android::IBinder::FIRST_CALL_TRANSACTION, changed, reply);
}

/** While this lives, requests go out as `bytes`. */
class Replacing {
public:
    explicit Replacing(const Bytes& bytes) {
        replacement = &bytes;
        interposition::setResponder(sendReplacement);
    }
    ~Replacing() { interposition::setResponder(nullptr); }
    Replacing(const Replacing&) = delete;
    Replacing& operator=(const Replacing&) = delete;
};

/** Whether the comparison of the wire test fails for a call whose request goes out as these bytes. */
bool isNoticed(const WireOperation& operation, const Bytes& bytes) {
    Observed seen;
    {
        const Replacing replacing(bytes);
        operation.call(seen, 0);
    }
    ::testing::TestPartResultArray failures;
    {
        const ::testing::ScopedFakeTestPartResultReporter reporter(
            ::testing::ScopedFakeTestPartResultReporter::INTERCEPT_ONLY_CURRENT_THREAD, &failures);
        expectOneRequest(environment.service(), operation);
    }
    return failures.size() > 0;
}

/** Of the mutants of one kind. */
struct Score {
    int all = 0;
    int noticed = 0;
    /** How many were not, by the reason why they are the same request. */
    std::map<std::string, int> same;
};

class Scores {
public:
    void count(const Mutant& mutant, bool isNoticed) {
        Score& score = mScores[mutant.kind];
        ++score.all;
        score.noticed += isNoticed ? 1 : 0;
        if (!isNoticed) {
            ++score.same[mutant.whySame];
        }
    }

    void print() const {
        for (const auto& [kind, score] : mScores) {
            std::printf("mutants of %s: %d of %d noticed\n", kind.c_str(), score.noticed, score.all);
            for (const auto& [reason, count] : score.same) {
                std::printf("    %d are the same request: %s\n", count, reason.c_str());
            }
        }
    }

    const std::map<std::string, Score>& all() const { return mScores; }

private:
    std::map<std::string, Score> mScores;
};

bool isLong() {
    const char* const length = std::getenv("KELUTV_TORTURE");
    return length != nullptr && std::string(length) == "long";
}

/** The token is the same everywhere: it is changed in the first request, and in all where there is time. */
MutantChoice choiceFor(std::size_t index) { return {isLong() || index == 0, isLong()}; }

TEST(WireMutants, areNoticedUnlessTheyAreTheSameRequest) {
    const std::vector<const WireOperation*> operations = everyOperation();
    ASSERT_GT(operations.size(), 500U);
    const LogCapture unread;
    Scores scores;
    for (std::size_t i = 0; i < operations.size(); ++i) {
        const Bytes request = requestBytes(*operations[i]);
        ASSERT_FALSE(isNoticed(*operations[i], request)) << operations[i]->name;
        for (const Mutant& mutant : mutantsOf(request, choiceFor(i))) {
            const bool isSame = mutant.bytes == request;
            const bool noticed = isNoticed(*operations[i], mutant.bytes);
            ASSERT_EQ(noticed, !isSame) << operations[i]->name << ": " << mutant.change;
            ASSERT_TRUE(noticed || *mutant.whySame != '\0') << operations[i]->name << ": " << mutant.change;
            scores.count(mutant, noticed);
        }
    }
    scores.print();
    for (const char* const kind : {"byte", "word", "field", "order", "length"}) {
        EXPECT_GT(scores.all().at(kind).noticed, 100) << kind;
    }
}

} // namespace

} // namespace kelutv::test
