#pragma once

#include <map>
#include <string>
#include <vector>

namespace kelutv::simulator {

/** Whether a string of JSON can hold the text. */
bool isUtf8(const std::string& text);

/** A string of JSON. @throws std::exception when the text is not UTF-8 */
std::string jsonString(const std::string& text);

/** A number of JSON. @param number finite */
std::string jsonNumber(double number);

std::string jsonTruth(bool truth);

/** A list of what is JSON already, in one line. */
std::string jsonList(const std::vector<std::string>& elements);

/** An object of members that are JSON already, in one line and in the order of their names. */
std::string jsonObject(const std::map<std::string, std::string>& members);

} // namespace kelutv::simulator
