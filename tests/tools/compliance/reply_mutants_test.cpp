// The replies of a television are changed on their way, one kind of request and one change at a time. The checks of the
// form of replies and of states that are set must notice, but for another value of what nothing sets; those of
// refusals, but for another refusal.

#include "support/RuntimeDir.h"
#include "tools/compliance/MutatingService.h"

#include "service/Registration.h"
#include "tools/kelutv/compliance/form/FormChecks.h"
#include "tools/kelutv/compliance/refusal/RefusalChecks.h"
#include "tools/kelutv/compliance/state/StateChecks.h"
#include "tools/kelutv/output/Errors.h"
#include "wire/codec/ReplyReader.h"

#include <binder/ProcessState.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

namespace kelutv::test {

namespace {

namespace compliance = tool::compliance;
using compliance::Verdict;

constexpr std::size_t kWord = sizeof(std::int32_t);
/** Words of a long reply that are changed, from its beginning on. */
std::size_t mostWords() {
    const char* const length = std::getenv("KELUTV_TORTURE");
    return length != nullptr && std::string(length) == "long" ? 64 : 6;
}

struct NamedMutation {
    const char* kind;
    std::string change;
    Mutation mutation;
};

std::ptrdiff_t offset(std::size_t at) { return static_cast<std::ptrdiff_t>(at); }

/** Lets a change alone that does not fit into a reply. */
Mutation within(std::size_t size, const std::function<void(Bytes&)>& change) {
    return [=](Bytes bytes) {
        if (bytes.size() >= size) {
            change(bytes);
        }
        return bytes;
    };
}

void addWordMutations(std::size_t at, std::vector<NamedMutation>& all) {
    const std::string place = std::to_string(at);
    for (std::size_t byte = at; byte < at + kWord; ++byte) {
        all.push_back({"byte", "byte " + std::to_string(byte),
                       within(byte + 1, [byte](Bytes& bytes) { bytes[byte] ^= std::uint8_t{1}; })});
    }
    all.push_back({"word", "word at " + place + " plus 1000", within(at + kWord, [at](Bytes& bytes) {
                       std::int32_t word = 0;
                       std::memcpy(&word, &bytes[at], kWord);
                       word = static_cast<std::int32_t>(static_cast<std::uint32_t>(word) + 1000U);
                       std::memcpy(&bytes[at], &word, kWord);
                   })});
    all.push_back({"field", "word at " + place + " left out", within(at + kWord, [at](Bytes& bytes) {
                       bytes.erase(bytes.begin() + offset(at), bytes.begin() + offset(at + kWord));
                   })});
    all.push_back({"field", "word at " + place + " twice", within(at + kWord, [at](Bytes& bytes) {
                       const Bytes word(bytes.begin() + offset(at), bytes.begin() + offset(at + kWord));
                       bytes.insert(bytes.begin() + offset(at), word.begin(), word.end());
                   })});
    all.push_back(
        {"order", "words at " + place + " and behind changed over", within(at + 2 * kWord, [at](Bytes& bytes) {
             std::rotate(bytes.begin() + offset(at), bytes.begin() + offset(at + kWord),
                         bytes.begin() + offset(at + 2 * kWord));
         })});
    all.push_back({"length", place + " bytes", within(at + 1, [at](Bytes& bytes) { bytes.resize(at); })});
}

std::vector<NamedMutation> mutationsOf(const Bytes& reply) {
    std::vector<NamedMutation> all;
    for (std::size_t at = 0; at + kWord <= reply.size() && at < mostWords() * kWord; at += kWord) {
        addWordMutations(at, all);
    }
    all.push_back({"length", "a byte less", [](Bytes bytes) {
                       bytes.resize(bytes.size() - 1);
                       return bytes;
                   }});
    for (const std::size_t more : {std::size_t{1}, kWord}) {
        all.push_back({"length", std::to_string(more) + " bytes more", [more](Bytes bytes) {
                           bytes.resize(bytes.size() + more);
                           return bytes;
                       }});
    }
    return all;
}

/** Checks that are made together: those of one function under one key. */
struct Group {
    std::vector<const compliance::Check*> checks;
};

/** `form.audio.getVolume[channel=speaker]` of the identifier of a check. */
std::string placeOf(const std::string& identifier) { return identifier.substr(0, identifier.rfind('.')); }

std::vector<Group> groupsOf(const compliance::Checks& checks) {
    std::map<std::string, std::string> placeOfFunction;
    std::map<std::string, Group> groups;
    for (const auto& check : checks) {
        const compliance::Subject& subject = check->subject();
        if (!check->whyLeftOut().empty()) {
            continue;
        }
        const std::string place = placeOf(subject.id);
        const std::string& first = placeOfFunction.emplace(subject.family + subject.function, place).first->second;
        if (first == place) {
            groups[place].checks.push_back(check.get());
        }
    }
    std::vector<Group> all;
    for (auto& [place, group] : groups) {
        all.push_back(std::move(group));
    }
    return all;
}

/** What the checks of a group came to, the worst of them. */
Verdict judged(const Group& group) {
    static compliance::Television television;
    Verdict worst = Verdict::passed;
    for (const compliance::Check* const check : group.checks) {
        Verdict verdict = Verdict::failed;
        try {
            verdict = check->run(television).verdict;
        } catch (const tool::ToolError&) {
        }
        if (verdict == Verdict::failed) {
            return verdict;
        }
        worst = verdict != Verdict::passed ? verdict : worst;
    }
    return worst;
}

/** Whether the reply still has the form that the catalogue says, so that only a value of it is another. */
bool hasForm(const Asked& asked, const Bytes& reply) {
    const wire::Operation* const operation = wire::operationOf(*wire::findCommand(asked.first), {{asked.second}});
    wire::ByteReader reader(reply.data(), reply.size());
    return !wire::readReply(*operation, reader).flaw;
}

struct Score {
    int all = 0;
    int failed = 0;
    /** Told as a refusal, or as inconclusive. */
    int told = 0;
    /** The same reply. */
    int same = 0;
    /** Another value, of which nothing says that it is wrong. */
    int unknowable = 0;
    std::vector<std::string> missed;
};

/** The one that this process has looked up for good. */
const android::sp<MutatingService>& theService() {
    static const RuntimeDir directory;
    static const android::sp<MutatingService> service = [] {
        android::ProcessState::self()->startThreadPool();
        android::sp<MutatingService> made = new MutatingService;
        EXPECT_EQ(service::registerService(made), "");
        return made;
    }();
    return service;
}

class ReplyMutants : public ::testing::Test {
protected:
    /** Makes the checks that only ask as they should be asked, and remembers what each of them asks. */
    void learn() {
        compliance::addFormChecks(mChecks, {});
        compliance::addStateChecks(mChecks, {});
        for (const Group& group : groupsOf(mChecks)) {
            note(group);
        }
    }

    /** Remembers for which requests the group is made. */
    void note(const Group& group) {
        if (judged(group) != Verdict::passed) {
            return;
        }
        const std::size_t index = mGroups.size();
        mGroups.push_back(group);
        for (auto& [asked, reply] : mService->takeReplies()) {
            mConcerned[asked].push_back(index);
            mReplies[asked] = reply;
        }
    }

    void count(const Asked& asked, const NamedMutation& mutation) {
        Score& score = mScores[mutation.kind];
        ++score.all;
        Verdict verdict = Verdict::passed;
        mService->mutate(asked, mutation.mutation);
        for (const std::size_t index : mConcerned[asked]) {
            const Verdict next = judged(mGroups[index]);
            verdict = next != Verdict::passed ? next : verdict;
            if (verdict == Verdict::failed) {
                break;
            }
        }
        const bool hasChanged = mService->takeChange();
        mService->mend();
        if (verdict == Verdict::failed) {
            ++score.failed;
        } else if (verdict != Verdict::passed) {
            ++score.told;
        } else if (!hasChanged) {
            ++score.same;
        } else if (hasForm(asked, mutation.mutation(mReplies[asked])) && !isOfSet(asked)) {
            ++score.unknowable;
        } else {
            score.missed.push_back(std::string(wire::findCommand(asked.first)->name) + ' ' +
                                   std::to_string(asked.second) + ": " + mutation.change);
        }
    }

    /** Whether a set is held against what these requests are answered, or they set something. */
    bool isOfSet(const Asked& asked) const {
        const std::vector<std::size_t>& groups = mConcerned.at(asked);
        return std::any_of(groups.begin(), groups.end(), [this](std::size_t index) {
            return mGroups[index].checks.front()->subject().family == "state";
        });
    }

    MutatingService* const mService = theService().get();
    compliance::Checks mChecks;
    std::vector<Group> mGroups;
    std::map<Asked, std::vector<std::size_t>> mConcerned;
    std::map<Asked, Bytes> mReplies;
    std::map<std::string, Score> mScores;
};

TEST_F(ReplyMutants, areNoticedUnlessNothingSaysWhatIsRight) {
    learn();
    ASSERT_GT(mReplies.size(), 200U);
    for (const auto& [asked, reply] : mReplies) {
        for (const NamedMutation& mutation : mutationsOf(reply)) {
            count(asked, mutation);
        }
    }
    for (const Group& group : mGroups) {
        EXPECT_EQ(judged(group), Verdict::passed) << group.checks.front()->subject().id;
    }
    for (const auto& [kind, score] : mScores) {
        std::printf("mutants of %s: %d, %d failed, %d told, %d the same, %d another value of what nothing sets\n",
                    kind.c_str(), score.all, score.failed, score.told, score.same, score.unknowable);
        EXPECT_EQ(score.missed, std::vector<std::string>{}) << kind;
    }
}

/** Of one function with each number of parameters, and of no function. */
const std::vector<std::string> kRefused{"audio.getInputVolume", "audio.setInputVolume", "audio.setVolume",
                                        "audio.getOutputStatus", "service"};

TEST_F(ReplyMutants, ofRefusalsAreNoticedUnlessTheyRefuse) {
    compliance::addRefusalChecks(mChecks, {});
    std::vector<Group> groups;
    for (const auto& check : mChecks) {
        const std::string place = placeOf(check->subject().id);
        const bool isMeant = std::any_of(kRefused.begin(), kRefused.end(),
                                         [&](const std::string& name) { return place == "refusal." + name; });
        if (isMeant && check->whyLeftOut().empty() && judged(Group{{check.get()}}) == Verdict::passed) {
            groups.push_back({{check.get()}});
        }
    }
    const Bytes refusal(kWord, 0xFF);
    auto mutations = mutationsOf(refusal);
    mutations.push_back({"word", "word at 0 is 0", [](const Bytes&) { return Bytes(kWord); }});
    ASSERT_GT(groups.size(), 15U);
    std::size_t failed = 0;
    for (const NamedMutation& mutation : mutations) {
        const Bytes changed = mutation.mutation(refusal);
        const bool stillRefuses = changed.size() == kWord && changed != Bytes(kWord);
        for (const Group& group : groups) {
            mService->mutateRefusals(mutation.mutation);
            const Verdict verdict = judged(group);
            const bool isConcerned = mService->takeChange();
            mService->mend();
            failed += verdict == Verdict::failed ? 1 : 0;
            const std::string id = group.checks.front()->subject().id + ": " + mutation.change;
            EXPECT_EQ(verdict == Verdict::passed, stillRefuses || !isConcerned) << id;
        }
    }
    EXPECT_GT(failed, 100U);
}

} // namespace

} // namespace kelutv::test
