#include "tools/kelutv/settings/Settings.h"

#include "tools/kelutv/output/Errors.h"
#include "tools/kelutv/text/FunctionNamed.h"
#include "tools/kelutv/text/Lists.h"
#include "wire/text/Names.h"
#include "wire/text/Nearest.h"
#include "wire/text/Shown.h"

#include <algorithm>
#include <iterator>

namespace kelutv::tool {

namespace {

constexpr int kPercent = 100;
constexpr int kLongestDelay = 500;

/** A function with its arguments. */
struct Access {
    std::string function;
    std::vector<std::string> arguments;
};

Setting number(std::string name, std::string meaning, Place place, Access get, Access set, int high = kPercent,
               std::string unit = "") {
    return {std::move(name),
            std::move(meaning),
            SettingKind::Number,
            place,
            std::move(get.function),
            std::move(get.arguments),
            "",
            std::move(set.function),
            std::move(set.arguments),
            0,
            high,
            std::move(unit)};
}

Setting other(SettingKind kind, std::string name, std::string meaning, Place place, Access get, Access set = {}) {
    Setting setting = number(std::move(name), std::move(meaning), place, std::move(get), std::move(set));
    setting.kind = kind;
    return setting;
}

/** The setting when it comes in an output parameter. */
Setting in(std::string output, Setting setting) {
    setting.output = std::move(output);
    return setting;
}

Access audio(const std::string& function, std::vector<std::string> arguments = {}) {
    return {"linux_tv_Audio_" + function, std::move(arguments)};
}

Access picture(const std::string& function, std::vector<std::string> arguments = {}) {
    return {"linux_tv_Picture_" + function, std::move(arguments)};
}

Access source(const std::string& function, std::vector<std::string> arguments = {}) {
    return {"linux_tv_SourceManager_" + function, std::move(arguments)};
}

Access system(const std::string& function, std::vector<std::string> arguments = {}) {
    return {"linux_tv_SystemSetting_" + function, std::move(arguments)};
}

Access factory(const std::string& function) { return {"linux_tv_Factory_" + function, {}}; }

Setting effect(const std::string& name, const std::string& meaning, const std::string& parameter) {
    return number(name, meaning, Place::List, audio("getEffectParameter", {parameter}),
                  audio("setEffectParameter", {parameter, "%"}));
}

Setting pictureNumber(const std::string& name, const std::string& meaning, const std::string& function) {
    return number(name, meaning, Place::Status, picture("get" + function), picture("set" + function, {"%"}));
}

Setting flag(std::string name, std::string meaning, Place place, Access get, Access set) {
    return other(SettingKind::Switch, std::move(name), std::move(meaning), place, std::move(get), std::move(set));
}

Setting choice(std::string name, std::string meaning, Place place, Access get, Access set = {}) {
    return other(SettingKind::Choice, std::move(name), std::move(meaning), place, std::move(get), std::move(set));
}

Setting config(const std::string& name, const std::string& meaning, const std::string& function,
               const std::string& output) {
    return in(output,
              flag(name, meaning, Place::List, {"CConfig::Get" + function, {}}, {"CConfig::Set" + function, {"%"}}));
}

Setting hotelFlag(const std::string& name, const std::string& meaning, Place place, const std::string& function) {
    return in("pEnable", flag(name, meaning, place, {"Get" + function, {}}, {"Set" + function, {"%"}}));
}

Setting hotelVolume(const std::string& name, const std::string& meaning, const std::string& function) {
    return in("pVolume", number(name, meaning, Place::List, {"Get" + function, {}}, {"Set" + function, {"%"}}));
}

Setting text(const std::string& name, const std::string& meaning, Place place, const std::string& output, Access get) {
    return in(output, other(SettingKind::Text, name, meaning, place, std::move(get)));
}

std::vector<Setting> sourceSettings() {
    return {
        choice("source", "What the main window shows", Place::Status, source("getCurSourceId", {"0"}),
               source("selectSource", {"%", "0"})),
        flag("signal", "Whether the source has a signal", Place::Status, source("getSignalStatus"), {}),
        in("info", other(SettingKind::Timing, "timing", "The size and the rate of the signal", Place::Status,
                         source("getTimingInfo"))),
        choice("stream-type", "The dynamic range of the signal", Place::Status, picture("getHdrStreamType")),
        choice("boot-source", "The source that the television starts with", Place::List, source("getBootSource"),
               source("setBootSource", {"%"})),
    };
}

std::vector<Setting> soundSettings() {
    return {
        number("volume", "The volume of the speakers", Place::Status, audio("getVolume", {"speaker"}),
               audio("setVolume", {"speaker", "%"})),
        flag("mute", "Whether the speakers are silent", Place::Status, audio("getMute", {"speaker"}),
             audio("setMute", {"speaker", "%"})),
        number("headphone-volume", "The volume of the headphones", Place::List, audio("getVolume", {"headphone"}),
               audio("setVolume", {"headphone", "%"})),
        number("subwoofer-volume", "The volume of the subwoofer", Place::List, audio("getSubWooferVolume"),
               audio("setSubWooferVolume", {"%"})),
        number("max-volume", "The highest volume of the speakers", Place::List, audio("getMaxVolume", {"speaker"}),
               audio("setMaxVolume", {"speaker", "%"})),
        number("boot-volume", "The volume that the television starts with", Place::List,
               audio("getBootVolume", {"speaker"}), audio("setBootVolume", {"speaker", "%"})),
        choice("sound-mode", "The sound mode", Place::Status, audio("getSoundMode"), audio("setSoundMode", {"%"})),
        choice("stereo", "Mono, stereo or the language of a dual sound", Place::List, audio("getStereoMode"),
               audio("setStereoMode", {"%"})),
        flag("surround", "Surround sound", Place::List, audio("getSurroundMode"), audio("setSurroundMode", {"%"})),
        effect("balance", "Left and right, the middle is 50", "balance_e"),
        effect("bass", "The low tones", "bass_e"),
        effect("treble", "The high tones", "treble_e"),
        choice("spdif", "What the digital sound output carries", Place::List, audio("getSPDIFOutput"),
               audio("setSPDIFOutput", {"%"})),
        number("spdif-delay", "How much later the digital output sounds", Place::List, audio("getSPDIFOutputDelay"),
               audio("setSPDIFOutputDelay", {"%"}), kLongestDelay, "ms"),
    };
}

std::vector<Setting> pictureSettings() {
    return {
        choice("picture-mode", "The picture mode", Place::Status, picture("getPictureMode"),
               picture("setPictureMode", {"%"})),
        pictureNumber("brightness", "The brightness of the picture", "Brightness"),
        pictureNumber("contrast", "The contrast of the picture", "Contrast"),
        pictureNumber("saturation", "The colour saturation", "Saturation"),
        pictureNumber("sharpness", "The sharpness of the picture", "Sharpness"),
        pictureNumber("hue", "The hue of the picture", "Hue"),
        pictureNumber("backlight", "The backlight of the panel", "Backlight"),
        choice("color-temperature", "The colour temperature", Place::Status, picture("getColorTemp"),
               picture("setColorTemp", {"%"})),
        choice("aspect", "How the picture fills the screen", Place::Status, picture("getAspect"),
               picture("setAspect", {"%", "false"})),
        choice("noise-reduction", "The noise reduction", Place::List, picture("getNR"), picture("setNR", {"%"})),
        flag("game-mode", "The game mode", Place::List, picture("isGameModeEnable"), picture("enableGameMode", {"%"})),
        flag("freeze", "Whether the picture stands still", Place::List, picture("isFreezeEnable"),
             picture("enableFreeze", {"%"})),
        flag("overscan", "Whether the edge of the picture is cut", Place::List, picture("isOverscanEnable"),
             picture("enableOverscan", {"%"})),
        choice("hdr-mode", "How a high dynamic range is shown", Place::List, picture("getHdrMode"),
               picture("setHdrMode", {"%"})),
    };
}

std::vector<Setting> systemSettings() {
    return {
        choice("language", "The language of the menus", Place::Status, system("getLanguage"),
               system("setLanguage", {"%"})),
        in("pOnOff", flag("screen", "Whether the screen is on", Place::Status, system("getScreenOn"),
                          system("setScreenOn", {"%"}))),
        number("half-standby", "The half standby, as the service numbers it", Place::Status, system("getHalfStandby"),
               {}),
        flag("blue-screen", "A blue screen without a signal", Place::List, system("isScreenBlueEnable"),
             system("enableScreenBlue", {"%"})),
        in("pEnable", flag("market-mode", "The mode for the shop", Place::List, system("getMarketModeEnable"),
                           system("setMarketModeEnable", {"%"}))),
        config("cec", "Control of the devices at the HDMI inputs", "CECSwitchMode", "aMode"),
        config("arc", "The audio return channel", "ARCEnable", "aEnable"),
        number("last-power-off", "How the television was last switched off, as the service numbers it", Place::Status,
               system("getLastPowerOffMode"), {}),
        number("wakeup", "What woke the television, as the service numbers it", Place::Status, system("getWakeupMode"),
               {}),
        number("power-on-mode", "What the television does when it gets power, as the service numbers it", Place::List,
               factory("getPoweronMode"), {}),
        number("suspend-mode", "How the television is suspended, as the service numbers it", Place::List,
               factory("getSuspendMode"), {}),
    };
}

std::vector<Setting> hotelSettings() {
    return {
        hotelFlag("hotel", "The hotel mode", Place::Status, "HotelEnable"),
        hotelFlag("hotel-keypad", "Whether the keys at the television work in a hotel", Place::List,
                  "HotelKeypadEnable"),
        hotelFlag("hotel-menu", "Whether the setup menu opens in a hotel", Place::List, "HotelSetupMenuEnable"),
        hotelVolume("hotel-max-volume", "The highest volume in a hotel", "HotelMaxVolume"),
        hotelVolume("hotel-boot-volume", "The volume that a hotel's television starts with", "HotelBootVolume"),
        in("pSrc", choice("hotel-boot-source", "The source that a hotel's television starts with", Place::List,
                          {"GetHotelBootSrc", {}}, {"SetHotelBootSrc", {"%"}})),
    };
}

std::vector<Setting> versionSettings() {
    return {
        text("middleware-version", "The version of the middleware", Place::Status, "version",
             system("getMiddlewareVersion")),
        text("boot-version", "The version of the boot loader", Place::List, "pStr", system("getBootVersion")),
        text("platform", "The platform", Place::Status, "str", factory("getPlatform")),
        text("picture-version", "The version of the picture data", Place::List, "pPQBinVersion",
             factory("getPQBinVersion")),
        text("panel", "The panel", Place::List, "info", factory("getPanelInfo")),
    };
}

std::vector<Setting> allSettings() {
    std::vector<Setting> all;
    for (const auto settingsOfPart :
         {sourceSettings, soundSettings, pictureSettings, systemSettings, hotelSettings, versionSettings}) {
        std::vector<Setting> part = settingsOfPart();
        std::move(part.begin(), part.end(), std::back_inserter(all));
    }
    return all;
}

} // namespace

const std::vector<Setting>& settings() {
    static const std::vector<Setting> all = allSettings();
    return all;
}

std::vector<std::string> settingNames(bool settable) {
    std::vector<std::string> names;
    for (const Setting& setting : settings()) {
        if (!settable || !setting.setter.empty()) {
            names.push_back(setting.name);
        }
    }
    return names;
}

const wire::ValueType& typeOf(const Setting& setting) {
    const wire::Function& getter = functionNamed(setting.getter);
    const auto* const parameter =
        std::find_if(getter.parameters.begin(), getter.parameters.end(),
                     [&setting](const wire::Parameter& each) { return setting.output == each.name; });
    return parameter != getter.parameters.end() ? parameter->values : getter.result;
}

const wire::Enumeration& enumerationOf(const Setting& setting) { return *typeOf(setting).names; }

const Setting& settingNamed(const std::string& name) {
    for (const Setting& setting : settings()) {
        if (setting.name == name) {
            return setting;
        }
    }
    throw UsageError("there is no '" + wire::shown(name) + "' to get or set" +
                     wire::nearestHint(name, settingNames(false)));
}

std::string allowedFor(const Setting& setting) {
    switch (setting.kind) {
    case SettingKind::Number:
        return std::to_string(setting.low) + ".." + std::to_string(setting.high) +
               (setting.unit.empty() ? "" : ' ' + setting.unit) + ", +N, -N";
    case SettingKind::Switch:
    case SettingKind::Choice:
        return joined(valueNames(setting), ", ");
    case SettingKind::Text:
    case SettingKind::Timing:
        break;
    }
    return "";
}

std::vector<std::string> valueNames(const Setting& setting) {
    if (setting.kind == SettingKind::Switch) {
        return {"on", "off", "toggle"};
    }
    return setting.kind == SettingKind::Choice ? wire::namesOf(enumerationOf(setting)).shortNames()
                                               : std::vector<std::string>();
}

} // namespace kelutv::tool
