#pragma once

#include "wire/Record.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace kelutv::wire {

enum class ValueKind {
    /** One value, by itself or behind a pointer. */
    Single,
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

/** What values there are and what they are called; what does not apply is null. */
struct ValueType {
    ValueKind kind;
    ScalarType scalar;
    const Enumeration* names;
    const Record* record;
    const Range* range;
};

enum class Direction {
    In,
    /** Written by the function and not given by the caller. */
    Out,
    InOut,
    /** Counts the array that goes in. */
    Length,
};

struct Parameter {
    const char* name;
    /** As declared: `const char*`. */
    const char* type;
    Direction direction;
    bool isPointer;
    /** A null pointer may be given; without this the library would follow it. */
    bool allowsNull;
    ValueType values;
    /** Of an array: what tells its length, `width*height`, `u32Len`, `32`; empty where nothing does. */
    const char* length;
    /** The block begins with an unsigned word that says how many bytes follow. */
    bool isLedByLength;
};

/** One request that a call sends. */
struct SentRequest {
    const char* command;
    std::int32_t commandValue;
    /** Null unless the command carries items and the call fixes the item. */
    const char* item;
    std::int32_t itemValue;
    /** What follows the command, in wire order: `int32 channel, int32 vol`; empty for nothing. */
    const char* arguments;
    /** What the service answers behind its result: `int value`; `status` when the result is all. */
    const char* reply;
};

enum class EffectKind {
    /** Gives something and changes nothing. */
    Read,
    /** Gives a value to something that holds it until the next set. */
    Set,
    /** Makes something happen. */
    Action,
    /** Sends nothing and changes nothing. */
    PrintOnly,
};

/** What a call does to a television. */
struct Effect {
    EffectKind kind;
    /** The function that reads, with the same indexes, what a set is about to change; null without one. */
    const char* back;
    /** Whether the change outlasts power off; nothing when that is not known. */
    std::optional<bool> isKept;
    /** May lose what nothing puts back, or leave the television unusable. */
    bool isDangerous;
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
    Effect effect;
    /** The operations that it calls, in order: `Audio::setVolume`; empty for a method that sends itself. */
    const char* calls;
    Rows<SentRequest> requests;
    /** A result of -1 is a value like any other. */
    bool anyResultIsValue;
    /** The service's result word is the value that is read. */
    bool statusIsValue;
};

/** Every function, by module and in the order of the catalogue. */
Rows<Function> allFunctions();

/** The function of this full name, or all those of this short name. */
std::vector<const Function*> functionsNamed(const std::string& name);

/** The functions that send this command; with an item only those that send it, too. */
std::vector<const Function*> functionsSending(std::int32_t command);
std::vector<const Function*> functionsSending(std::int32_t command, std::int32_t item);

} // namespace kelutv::wire
