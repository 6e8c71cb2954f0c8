#include "tools/kelutv/settings/SettingCondition.h"

#include "tools/kelutv/output/Errors.h"
#include "tools/kelutv/settings/SettingValue.h"
#include "tools/kelutv/text/AllowedValues.h"
#include "wire/text/Names.h"
#include "wire/text/Numbers.h"
#include "wire/text/Shown.h"

namespace kelutv::tool {

namespace {

std::int64_t numberIn(const Comparison& comparison) {
    const auto number = wire::wholeNumber<std::int64_t>(comparison.value);
    if (!number) {
        throw UsageError(comparison.name + " is compared with a whole number, not '" + wire::shown(comparison.value) +
                         '\'');
    }
    return *number;
}

/** The value as it is shown when it is read. */
std::string textIn(const Comparison& comparison, const Setting& setting) {
    switch (setting.kind) {
    case SettingKind::Switch:
        if (comparison.value != "on" && comparison.value != "off") {
            throw UsageError(setting.name + " is on or off, not '" + wire::shown(comparison.value) + '\'');
        }
        return comparison.value;
    case SettingKind::Choice: {
        const wire::Enumeration& values = enumerationOf(setting);
        return wire::namesOf(values).shortNameOf(valueNamed(values, comparison.value, setting.name));
    }
    case SettingKind::Timing:
        throw UsageError(setting.name + " has several values; none can be waited for");
    case SettingKind::Number:
    case SettingKind::Text:
        break;
    }
    return comparison.value;
}

} // namespace

SettingCondition::SettingCondition(const Comparison& comparison)
    : mSetting(settingNamed(comparison.name)), mRelation(comparison.relation) {
    if (mSetting.kind == SettingKind::Number) {
        mNumber = numberIn(comparison);
    } else {
        mText = textIn(comparison, mSetting);
        if (isOfOrder(mRelation)) {
            throw UsageError(mSetting.name + " is compared by = or != only");
        }
    }
}

bool SettingCondition::isMetBy(const Json& value) const {
    return mSetting.kind == SettingKind::Number ? holds(value.asInteger(), mRelation, mNumber)
                                                : holds(shownText(mSetting, value), mRelation, mText);
}

} // namespace kelutv::tool
