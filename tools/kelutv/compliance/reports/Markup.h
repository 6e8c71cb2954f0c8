#pragma once

#include <string>
#include <utility>
#include <vector>

namespace kelutv::tool::compliance {

/**
 * The text as it may stand in an element or in quotes of an attribute, of XML and of HTML. What neither may hold is
 * `\x1f`.
 */
std::string escaped(const std::string& text);

/** Names and values. */
using Attributes = std::vector<std::pair<std::string, std::string>>;

/** `<name a="1">`, the values escaped. */
std::string openingTag(const std::string& name, const Attributes& attributes = {});

/** The element around what is markup already. */
std::string element(const std::string& name, const Attributes& attributes, const std::string& markup);

/** The element around a text, which is escaped. */
std::string textElement(const std::string& name, const Attributes& attributes, const std::string& text);

} // namespace kelutv::tool::compliance
