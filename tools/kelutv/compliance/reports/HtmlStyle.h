#pragma once

namespace kelutv::tool::compliance {

/** The style sheet of a report's page: light and dark, for telephones and desks. */
extern const char* const kHtmlStyle;

} // namespace kelutv::tool::compliance
