#pragma once

#include "tools/kelutv/output/Output.h"
#include "tools/kelutv/settings/Settings.h"

#include <functional>
#include <string>
#include <vector>

namespace kelutv::tool {

/** One line of a screen. */
struct ScreenRow {
    std::string name;
    std::string text;
    Style style;
};

/** What a command shows of the television, part by part: lines, or one document of all. */
class Screen {
public:
    /** Reads a part: adds its lines and gives its document. @throws LinkError, ServiceError */
    using Read = std::function<Json(std::vector<ScreenRow>& rows)>;

    explicit Screen(const Output& output) : mOutput(output) {}

    /** A part that cannot be read says so in its line. @throws LinkError */
    void add(const std::string& name, const Read& read);
    void add(const Setting& setting);

    /** Prints the document of what was added. */
    void end() const;

    /** False when not one part could be read. */
    bool hasRead() const { return mHasRead; }

private:
    void show(const ScreenRow& row) const;

    const Output& mOutput;
    Json mDocument;
    bool mHasRead = false;
};

/**
 * Adds these parts and prints the document; of a service that goes away meanwhile, too.
 *
 * @throws LinkError
 * @throws ServiceError behind it all when not one part could be read
 */
void showScreen(const Output& output, const std::function<void(Screen& screen)>& addParts);

} // namespace kelutv::tool
