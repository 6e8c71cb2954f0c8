#pragma once

#include "wire/Function.h"

#include <string>
#include <vector>

namespace kelutv::tool {

enum class SettingKind {
    /** A whole number of a range. */
    Number,
    /** On or off. */
    Switch,
    /** One name of the enumeration that the function that sets or reads it has. */
    Choice,
    Text,
    /** The size and the rate of the picture that comes in. */
    Timing,
};

/** Where a setting is listed. */
enum class Place {
    /** Among all others. */
    List,
    /** On the screen of `kelutv status`, too. */
    Status,
};

/** A setting or a state of the television that is read or changed by its name. */
struct Setting {
    std::string name;
    std::string meaning;
    SettingKind kind;
    Place place;
    /** The function that reads it, with its arguments. */
    std::string getter;
    std::vector<std::string> getterArguments;
    /** The output parameter of that function that holds it; empty for its result. */
    std::string output;
    /** The function that sets it; empty when it can only be read. */
    std::string setter;
    /** The arguments of that function, "%" for the value. */
    std::vector<std::string> setterArguments;
    /** The range of a number, and what it is counted in. */
    int low;
    int high;
    std::string unit;
};

/** Every setting, those that belong together beside each other. */
const std::vector<Setting>& settings();

/** The names of all settings, or only of those that can be set. */
std::vector<std::string> settingNames(bool settable);

/** @throws UsageError with the nearest names when there is none */
const Setting& settingNamed(const std::string& name);

/** What the function that reads it gives. */
const wire::ValueType& typeOf(const Setting& setting);

/** The enumeration that names the values of a choice. */
const wire::Enumeration& enumerationOf(const Setting& setting);

/** What can be written for it: `0..100, +N, -N`, `on, off, toggle`, names separated by commas; nothing for texts. */
std::string allowedFor(const Setting& setting);

/** The words that `set` takes for a switch or a choice, in the order of the enumeration. */
std::vector<std::string> valueNames(const Setting& setting);

} // namespace kelutv::tool
