#include "tools/kelutv/service/Answering.h"

#include <atomic>

namespace kelutv::tool {

namespace {

std::atomic<AnswerListener> answerListener{nullptr};

} // namespace

void tellOfAnswers(AnswerListener listener) { answerListener.store(listener); }

void noteAnswer() {
    if (const AnswerListener listener = answerListener.load()) {
        listener();
    }
}

} // namespace kelutv::tool
