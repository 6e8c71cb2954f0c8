#pragma once

#include "tools/kelutv/output/Json.h"
#include "tools/kelutv/settings/Settings.h"
#include "tools/kelutv/text/Comparison.h"

#include <cstdint>
#include <string>

namespace kelutv::tool {

/** What a setting is to be. */
class SettingCondition {
public:
    /** @throws UsageError when there is no such setting, or it cannot be compared so */
    explicit SettingCondition(const Comparison& comparison);

    const Setting& setting() const { return mSetting; }

    /** Whether a value that was read is as it is to be. */
    bool isMetBy(const Json& value) const;

private:
    const Setting& mSetting;
    Relation mRelation;
    /** Of a number. */
    std::int64_t mNumber = 0;
    /** As a person reads it, of anything else. */
    std::string mText;
};

} // namespace kelutv::tool
