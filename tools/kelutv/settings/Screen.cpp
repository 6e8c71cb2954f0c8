#include "tools/kelutv/settings/Screen.h"

#include "tools/kelutv/output/Errors.h"
#include "tools/kelutv/settings/SettingValue.h"

#include <algorithm>

namespace kelutv::tool {

namespace {

constexpr std::size_t kNameWidth = 20;

Style styleOf(const Json& value) {
    if (value.isBoolean()) {
        return value.asBoolean() ? Style::Good : Style::Dim;
    }
    return value.isNumber() ? Style::Number : Style::Value;
}

} // namespace

void Screen::add(const std::string& name, const Read& read) {
    try {
        std::vector<ScreenRow> rows;
        mDocument[name] = read(rows);
        mHasRead = true;
        for (const ScreenRow& row : rows) {
            show(row);
        }
    } catch (const ServiceError& error) {
        mDocument[name] = nullptr;
        mDocument["unreadable"][name] = error.what();
        show({name, std::string("unreadable: ") + error.what(), Style::Bad});
    }
}

void Screen::add(const Setting& setting) {
    add(setting.name, [&setting](std::vector<ScreenRow>& rows) {
        const Json value = readSetting(setting);
        rows.push_back({setting.name, shownText(setting, value), styleOf(value)});
        return valueDocument(setting, value);
    });
}

void Screen::end() const {
    if (!mDocument.isNull()) {
        mOutput.document(mDocument);
    }
}

void Screen::show(const ScreenRow& row) const {
    std::string name = row.name;
    name.resize(std::max(name.size() + 1, kNameWidth), ' ');
    mOutput.line(name + mOutput.styled(row.style, row.text));
}

void showScreen(const Output& output, const std::function<void(Screen& screen)>& addParts) {
    Screen screen(output);
    try {
        addParts(screen);
    } catch (const LinkError&) {
        screen.end();
        throw;
    }
    screen.end();
    if (!screen.hasRead()) {
        throw ServiceError("nothing of this could be read");
    }
}

} // namespace kelutv::tool
