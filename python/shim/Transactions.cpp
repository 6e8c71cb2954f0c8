#include "python/shim/Transactions.h"

#include "python/shim/Interface.h"
#include "python/shim/Text.h"
#include "tools/kelutv/service/ReplyCheck.h"
#include "wire/text/ResultNames.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace kelutv::python {

namespace {

using interposition::Transaction;

constexpr std::int32_t kNone = 0;
constexpr std::int32_t kLookCloser = -1;

enum Failure { Nothing = 0, NotThrough = 1, Refused = 2, Malformed = 3 };

struct Noted {
    std::int32_t summary = kNone;
    std::vector<Transaction> transactions;
};

thread_local Noted noted;

/** The bytes of an answer that begins with a result of 0. */
std::int32_t sizeOfSuccess(const Transaction& transaction) {
    std::int32_t result = -1;
    if (transaction.status != 0 || transaction.reply.size() < sizeof result) {
        return kLookCloser;
    }
    std::memcpy(&result, transaction.reply.data(), sizeof result);
    return result == 0 ? static_cast<std::int32_t>(transaction.reply.size()) : kLookCloser;
}

/** Those of the call that has just been made. */
const std::vector<Transaction>& current() {
    if (noted.summary == kNone) {
        noted.transactions.clear();
    }
    return noted.transactions;
}

} // namespace

void noteTransaction(Transaction transaction) {
    if (noted.summary == kNone) {
        noted.transactions.clear();
        noted.summary = sizeOfSuccess(transaction);
    } else {
        noted.summary = kLookCloser;
    }
    noted.transactions.push_back(std::move(transaction));
}

} // namespace kelutv::python

using namespace kelutv; // NOLINT(google-build-using-namespace)

extern "C" int32_t* kelutv_python_summary(void) { return &python::noted.summary; }

extern "C" int kelutv_python_failure(int is_value, int32_t* number, char* text, unsigned int room) {
    const auto& transactions = python::current();
    const auto lost = std::find_if(transactions.begin(), transactions.end(),
                                   [](const interposition::Transaction& each) { return each.status != 0; });
    if (lost != transactions.end()) {
        *number = lost->status;
        python::store(wire::statusText(lost->status), text, room);
        return python::NotThrough;
    }
    const auto failure = tool::failureIn(transactions, is_value != 0);
    *number = failure ? failure->result.value_or(0) : 0;
    python::store(failure ? failure->text : "", text, room);
    return !failure ? python::Nothing : failure->result ? python::Refused : python::Malformed;
}
