#pragma once

#include "wire/Enumeration.h"
#include "wire/Value.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace kelutv::wire {

/** How something stands in a parcel. */
enum class Encoding { Int32, Double, CString, String16, Ints, Doubles, Bytes };

/** The length of a block of which the request does not say how long it is: it fills the rest. */
constexpr int kRestOfRequest = -1;

struct RequestItem {
    Encoding encoding;
    const char* name;
    const Enumeration* names;
    /** Of a block: the request item that holds its length, or `kRestOfRequest`. */
    int lengthItem;
};

/** A field that fills the rest of the reply, or so much of it as its lengths say. */
constexpr int kRestOfReply = -1;
/** One number: how many values are left for the rest of the reply. */
constexpr int kCountOfRest = -2;

struct ReplyField {
    Encoding encoding;
    /** Null unless the field belongs to a record. */
    const char* name;
    const Enumeration* names;
    int count;
    /** The request items whose product is how many values the service must send; none where no request item says so. */
    Rows<int> lengthItems = {};
};

/** What the result word and the words behind it mean; see the command calls of the client. */
enum class Shape { Status, Number, Parcel };

/** What the values, or one of the indexes, of a state are. */
enum class Holds { Integers, Reals, Texts, Anything };

/** Names one thing that the television keeps, possibly once for each of several indexes. */
struct StateKey {
    const char* name;
    const char* module;
    Holds holds;
    Rows<Holds> indexes;
};

/** The request item at `index`; the literal when that is negative. */
struct Operand {
    int index;
    std::int32_t literal;
};

/** What a set stores is what the matching get returns. */
struct StateRule {
    enum class Access { None, Set, Get };

    Access access;
    const StateKey* key;
    Rows<Operand> indexes;
    Rows<Operand> values;
};

struct Operation {
    Rows<RequestItem> request;
    Shape shape;
    Rows<ReplyField> reply;
    StateRule rule;
    /** The fields come once for each entry of a list, which may be empty. */
    bool isList = false;
};

struct Command {
    const char* name;
    Operation operation;
    std::int32_t value;
    /** The first request item picks one of the module's items. */
    bool hasItems;
    const char* module = "";
};

/** One item behind a module's item command. */
struct Item {
    std::int32_t command;
    std::int32_t value;
    Operation operation;
};

/** What the comment of a public header says of something; fields are `Record.field`. */
struct Meaning {
    const char* name;
    const char* text;
};

/** Of enumerations, enumerators, records and their fields, by ascending name. */
Rows<Meaning> allMeanings();

/** What is said of one of them; empty for what has no comment. */
std::string meaningOf(std::string_view name);

/** Generated from the catalogue: the commands by ascending value, the items by ascending command and value, the states
 * by ascending name. */
Rows<Command> allCommands();
Rows<Item> allItems();
Rows<StateKey> allStates();

/** Null when there is none. */
const Command* findCommand(std::int32_t value);
const StateKey* findState(std::string_view name);
/** By ascending name. */
std::vector<std::string> stateNames();

/** The values that the operands stand for, one after the other. */
Values valuesOf(const Rows<Operand>& operands, const Arguments& arguments);

/** What a command does with these arguments; null when it names an item that does not exist. */
const Operation* operationOf(const Command& command, const Arguments& arguments);

} // namespace kelutv::wire
