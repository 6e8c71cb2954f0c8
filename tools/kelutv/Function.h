#pragma once

#include "wire/Rows.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace kelutv::tool {

using wire::Rows;

class CallFrame;

struct Enumerator {
    const char* name;
    std::int32_t value;
};

/** One enumeration of the public headers. */
struct Enumeration {
    const char* name;
    Rows<Enumerator> values;
    /** How many characters all the names have in common. */
    std::size_t prefix;
    /** What nearly all of them begin with. */
    const char* usualPrefix;
};

/** What one value is in memory. */
enum class Scalar { Int, Unsigned, Bool, Double, Char, Byte };

/** A field of a record: one value or, with a `count`, an array; an array of Char is a text. */
struct Field {
    /** `gain`, `cropRect.leftOffset`, `stEqParam[3].intGain`. */
    const char* name;
    Scalar scalar;
    const Enumeration* names;
    std::size_t offset;
    std::size_t count;
};

struct Record {
    const char* name;
    std::size_t size;
    Rows<Field> fields;
};

enum class Kind {
    /** One value, by itself or behind a pointer. */
    Value,
    /** A string. */
    Text,
    /** A pointer to several values. */
    Array,
    /** A record, by itself or behind a pointer. */
    Record,
    /** A std::vector or std::list of records or strings. */
    List,
    Callback,
    /** Nothing at all: the result of a function that has none. */
    Nothing,
};

enum class Direction {
    In,
    /** Written by the function and not given on the command line. */
    Out,
    InOut,
    /** Counts the array that goes in; worked out from it when it is left out. */
    Length,
};

/** What values there are and what they are called. */
struct ValueType {
    Kind kind;
    Scalar scalar;
    const Enumeration* names;
    const Record* record;
    bool bounded;
    std::int32_t low;
    std::int32_t high;
};

struct Parameter {
    const char* name;
    /** As declared: `const char*`. */
    const char* type;
    Direction direction;
    bool pointer;
    /** A null pointer may be given; without this the library would follow it. */
    bool allowsNull;
    ValueType values;
    /** Of an array or bytes: what tells its length, `width*height`, `u32Len`, `32`; empty where nothing does. */
    const char* length;
    /** The block begins with an unsigned word that says how many bytes follow. */
    bool ledByLength;
};

/** One request that a call sends. */
struct Request {
    const char* command;
    std::int32_t commandValue;
    /** Null unless the command carries items. */
    const char* item;
    std::int32_t itemValue;
    /** What follows the command, in wire order: `channel, vol`; empty for nothing. */
    const char* arguments;
    /** What the service answers behind its result: `int value`; `status` when the result is all. */
    const char* reply;
};

/** What help shows of a function: sentences of the headers and of the catalogue. */
struct FunctionTexts {
    /** The first sentence of the header's comment. */
    const char* brief;
    /** What else the header says, paragraphs apart by line ends; may be empty. */
    const char* details;
    /** What it returns, as the header says. */
    const char* returns;
    /** What a null pointer does, and what is out of the ordinary; may be empty. */
    const char* nullRule;
    const char* note;
    /** One for each parameter, in their order; may be empty. */
    Rows<const char*> parameters;
};

/** One C function of the library, or a class method that no C function stands for. */
struct Function {
    /** `linux_tv_Audio_setVolume`, `Audio::setInputVolume`. */
    const char* name;
    /** `audio.setVolume`; may be that of several functions. */
    const char* shortName;
    const char* module;
    /** The declaration: `int linux_tv_Audio_setVolume(int channel, int vol)`. */
    const char* signature;
    const FunctionTexts* texts;
    Rows<Parameter> parameters;
    ValueType result;
    /** The operations that it calls, in order: `Audio::setVolume`; empty for a method that sends itself. */
    const char* calls;
    Rows<Request> requests;
    /** A result of -1 is a value like any other. */
    bool anyResultIsValue;
    /** The service's result word is the value that is read. */
    bool statusIsValue;
    /** Makes the call with the frame's arguments and stores the result in it. */
    void (*call)(CallFrame& frame);
};

/** Every C function, and every class method without one, by module and in the order of the catalogue. */
const std::vector<const Function*>& allFunctions();

/** Every enumeration of the public headers. */
Rows<Enumeration> allEnumerations();

/**
 * The function of this full or short name.
 *
 * @throws UsageError when there is none, with the nearest names, or several, with all of them
 */
const Function& functionNamed(const std::string& name);

/**
 * The functions of a module (`audio`), else those whose full or short names contain the text or, when it has `*` or
 * `?`, match it as a pattern; capital letters do not count.
 */
std::vector<const Function*> functionsMatching(const std::string& pattern);

/** The functions that send this command; with an item only those that send it, too. */
std::vector<const Function*> functionsSending(std::int32_t command);
std::vector<const Function*> functionsSending(std::int32_t command, std::int32_t item);

/** The enumerator's name without what nearly all names of the enumeration begin with, in small letters: `hdmi2`. */
std::string shortNameOf(const Enumeration& enumeration, const Enumerator& enumerator);

/** The short names of an enumeration, in its order. */
std::vector<std::string> shortNamesOf(const Enumeration& enumeration);

/** The enumerator of this value; null when there is none. */
const Enumerator* enumeratorOf(const Enumeration& enumeration, std::int32_t value);

/**
 * The enumerator meant by a full name, a short name or an unambiguous piece of one, whatever its case.
 *
 * @throws UsageError when no name or several are meant, with the names that are allowed or match
 */
const Enumerator& enumeratorNamed(const Enumeration& enumeration, const std::string& text);

/** What is allowed, in words: `0..100`, `one of speaker, headphone`, `a whole number`. */
std::string allowedText(const ValueType& values);

} // namespace kelutv::tool
