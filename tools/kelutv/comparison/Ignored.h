#pragma once

#include "tools/kelutv/comparison/Values.h"
#include "wire/text/Pattern.h"
#include "wire/text/RequestPattern.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace kelutv::tool {

/** What a comparison is to pass over. */
class Ignored {
public:
    /**
     * @param words each `PATTERN`, of commands, items or events, or `PATTERN:VALUE`, which means values of that name of
     * them alone
     * @throws UsageError when one of them means no command, item or event
     */
    Ignored(const std::string& option, const std::vector<std::string>& words);

    /** Whether it is passed over as a whole. */
    bool has(const Happening& happening) const;

    /** The names of its values that are passed over. */
    std::vector<wire::Pattern> valuesOf(const Happening& happening) const;

    /** Takes away the differences that are passed over. @param happening that has them */
    void takeFrom(std::vector<ValueDifference>& differences, const Happening& happening) const;

private:
    struct Rule {
        /** @name Nothing where the pattern means none of these. @{ */
        std::optional<wire::RequestPattern> requests;
        std::optional<wire::Pattern> events;
        std::optional<std::uint32_t> event;
        /** @} */
        /** Nothing for the happening as a whole. */
        std::optional<wire::Pattern> value;

        bool means(const Happening& happening) const;
    };

    static Rule ruleOf(const std::string& option, const std::string& word);

    std::vector<Rule> mRules;
};

} // namespace kelutv::tool
