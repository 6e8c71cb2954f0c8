#pragma once

#include "tools/kelutv/output/Json.h"
#include "wire/Function.h"
#include "wire/Interface.h"

#include <cstdint>
#include <string>
#include <vector>

namespace kelutv::tool {

/** `0x2008 (8200)`. */
std::string numberText(std::int32_t number);

/** `int32 channel of KELU_TV_AUDIO_CHANNEL_E`. */
std::string fieldText(const std::string& type, const char* name, const wire::Enumeration* names);

/** `{"name": ..., "type": ..., "enumeration": ...}`, what it has of these. */
Json fieldDocument(const std::string& type, const char* name, const wire::Enumeration* names);

/** The short names of functions, in their order. */
std::vector<std::string> namesOf(const std::vector<const wire::Function*>& functions);

/** What an operation sends behind the command, and what the answer has behind its result, in lines. */
std::vector<std::string> linesOf(const wire::Operation& operation);

/** Adds `arguments` and `reply`. */
void addOperation(Json& document, const wire::Operation& operation);

} // namespace kelutv::tool
