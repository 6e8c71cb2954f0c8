#include "torture/processes/CallNotes.h"

#include <algorithm>
#include <cstdio>

namespace kelutv::test {

void CallNotes::note(const Operation& operation, const Outcome& outcome) {
    const auto isOutcome = [&](const std::string& text) { return text == outcome.text(); };
    if (isOutcome(operation.right)) {
        ++right;
    } else if (std::any_of(operation.failures.begin(), operation.failures.end(), isOutcome)) {
        ++failed;
    } else {
        noteWrong(operation.name, outcome.text());
    }
}

void CallNotes::noteWrong(const char* what, const char* found) {
    if (wrong.fetch_add(1) == 0) {
        std::snprintf(firstWrong.data(), firstWrong.size(), "%s gave %s", what, found);
    }
}

} // namespace kelutv::test
