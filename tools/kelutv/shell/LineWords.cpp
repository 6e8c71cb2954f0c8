#include "tools/kelutv/shell/LineWords.h"

#include "tools/kelutv/output/Errors.h"

#include <cctype>
#include <cstddef>

namespace kelutv::tool {

namespace {

class Reader {
public:
    explicit Reader(const std::string& line) : mLine(line) {}

    Words read() {
        while (mAt < mLine.size() && !atComment()) {
            take(mLine[mAt++]);
        }
        return mWords;
    }

private:
    bool atComment() const { return mLine[mAt] == '#' && mWords.open == 0 && !mInWord; }

    void take(char letter) {
        if (mWords.open != 0) {
            takeQuoted(letter);
        } else if (std::isspace(static_cast<unsigned char>(letter)) != 0) {
            endWord();
        } else {
            takePlain(letter);
        }
    }

    void takeQuoted(char letter) {
        if (letter == mWords.open) {
            mWords.open = 0;
        } else if (letter == '\\' && mWords.open == '"' && mAt < mLine.size() &&
                   (mLine[mAt] == '"' || mLine[mAt] == '\\')) {
            mWords.begun += mLine[mAt++];
        } else {
            mWords.begun += letter;
        }
    }

    void takePlain(char letter) {
        mInWord = true;
        if (letter == '\'' || letter == '"') {
            mWords.open = letter;
        } else if (letter == '\\' && mAt < mLine.size()) {
            mWords.begun += mLine[mAt++];
        } else {
            mWords.begun += letter;
        }
    }

    void endWord() {
        if (mInWord) {
            mWords.complete.push_back(mWords.begun);
        }
        mWords.begun.clear();
        mInWord = false;
    }

    const std::string& mLine;
    std::size_t mAt = 0;
    bool mInWord = false;
    Words mWords;
};

} // namespace

Words wordsBegun(const std::string& line) { return Reader(line).read(); }

std::vector<std::string> wordsOf(const std::string& line) {
    const Words words = wordsBegun(line + '\n');
    if (words.open != 0) {
        throw UsageError(std::string("the quotation mark ") + words.open + " is not closed");
    }
    return words.complete;
}

} // namespace kelutv::tool
