#include "tools/kelutv/shell/Tokenizer.h"

#include "tools/kelutv/output/Errors.h"

#include <cctype>
#include <cstddef>

namespace kelutv::tool {

namespace {

class Reader {
public:
    explicit Reader(const std::string& line) : mLine(line) {}

    LineTokens read() {
        while (mAt < mLine.size() && !atComment()) {
            take(mLine[mAt++]);
        }
        return mTokens;
    }

private:
    bool atComment() const { return mLine[mAt] == '#' && mTokens.open == 0 && !mInWord; }

    void take(char letter) {
        if (mTokens.open != 0) {
            takeQuoted(letter);
        } else if (std::isspace(static_cast<unsigned char>(letter)) != 0) {
            endWord();
        } else {
            takePlain(letter);
        }
    }

    void takeQuoted(char letter) {
        if (letter == mTokens.open) {
            mTokens.open = 0;
        } else if (letter == '\\' && mTokens.open == '"' && mAt < mLine.size() &&
                   (mLine[mAt] == '"' || mLine[mAt] == '\\')) {
            mTokens.begun += mLine[mAt++];
        } else {
            mTokens.begun += letter;
        }
    }

    void takePlain(char letter) {
        mInWord = true;
        if (letter == '\'' || letter == '"') {
            mTokens.open = letter;
        } else if (letter == '\\' && mAt < mLine.size()) {
            mTokens.begun += mLine[mAt++];
        } else {
            mTokens.begun += letter;
        }
    }

    void endWord() {
        if (mInWord) {
            mTokens.complete.push_back(mTokens.begun);
        }
        mTokens.begun.clear();
        mInWord = false;
    }

    const std::string& mLine;
    std::size_t mAt = 0;
    bool mInWord = false;
    LineTokens mTokens;
};

} // namespace

LineTokens tokenizeUnfinished(const std::string& line) { return Reader(line).read(); }

std::vector<std::string> tokenize(const std::string& line) {
    const LineTokens tokens = tokenizeUnfinished(line + '\n');
    if (tokens.open != 0) {
        throw UsageError(std::string("the quotation mark ") + tokens.open + " is not closed");
    }
    return tokens.complete;
}

} // namespace kelutv::tool
