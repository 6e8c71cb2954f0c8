#pragma once

#include <list>
#include <string>

namespace kelutv::test {

/** Longer than anything that an answer fills. */
constexpr int kBufferSize = 256;

/** Holds a value that no answer has, or numbers that count up. */
struct IntBuffer {
    IntBuffer();
    explicit IntBuffer(int first);
    int values[kBufferSize];
};

/** As IntBuffer. */
struct DoubleBuffer {
    DoubleBuffer();
    explicit DoubleBuffer(double first);
    double values[kBufferSize];
};

/** Bytes that count up. */
struct ByteBuffer {
    explicit ByteBuffer(int first);
    unsigned char values[kBufferSize];
};

/** Full of 'x', ended by a terminator; with a text at its beginning if one is given. */
struct CharBuffer {
    explicit CharBuffer(const char* text = nullptr);
    char values[kBufferSize];
};

/** Gathers what a call gave back, as text: "result=0;pMode=[7 0*255];". */
class Observed {
public:
    void add(const char* label, int value);
    void add(const char* label, unsigned int value);
    void add(const char* label, double value);
    void add(const char* label, const IntBuffer& buffer);
    void add(const char* label, const DoubleBuffer& buffer);
    /** The text; what is left of the 'x' behind it as "x*N"; '+' when anything behind its terminator has changed. */
    void add(const char* label, const CharBuffer& buffer);
    void add(const char* label, const std::list<int>& numbers);
    void add(const char* label, const std::list<std::string>& texts);

    const std::string& text() const { return mText; }

    /** Forgets everything but keeps the room. */
    void clear() { mText.clear(); }

private:
    void addValue(const char* label, const char* value);
    template <typename Numbers> void addRuns(const char* label, const Numbers& numbers);

    std::string mText;
};

} // namespace kelutv::test
