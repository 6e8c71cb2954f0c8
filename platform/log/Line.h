#pragma once

#include <cstddef>
#include <string_view>

namespace kqlog {

/** One line of the log under construction; moves to the heap when it outgrows the stack. */
class Line {
public:
    /** Starts with everything that stands before the text. */
    Line(int priority, const char* tag);
    ~Line();
    Line(const Line&) = delete;
    Line& operator=(const Line&) = delete;

    /** Adds text, with line ends escaped. */
    void append(std::string_view text);

    /** Ends the line and writes it to standard error. Returns 1, or a negative errno value. */
    int write();

private:
    void put(char c);
    bool grow();

    char mInline[1536];
    char* mData = mInline;
    std::size_t mCapacity = sizeof(mInline);
    std::size_t mSize = 0;
};

} // namespace kqlog
