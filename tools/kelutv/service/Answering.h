#pragma once

namespace kelutv::tool {

/** Runs on the thread that asked; must not throw. */
using AnswerListener = void (*)();

/** From now on this is told of each answer that comes to this process; null tells nobody. */
void tellOfAnswers(AnswerListener listener);

/** Tells whoever wants to know that an answer has come. */
void noteAnswer();

} // namespace kelutv::tool
