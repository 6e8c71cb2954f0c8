#include "tools/kelutv/checks/Asking.h"

#include "tools/kelutv/output/Errors.h"
#include "tools/kelutv/service/ServiceLink.h"

#include <binder/Parcel.h>

#include <cstdio>

namespace kelutv::tool {

namespace {

/** A verdict has one line: what stands in lines of its own goes into parentheses. */
std::string inOneLine(std::string text) {
    const std::string breakOfLines = "\n  ";
    std::size_t place = text.find(breakOfLines);
    if (place == std::string::npos) {
        return text;
    }
    text.replace(place, breakOfLines.size(), " (");
    while ((place = text.find(breakOfLines, place)) != std::string::npos) {
        text.replace(place, breakOfLines.size(), "; ");
    }
    return text + ')';
}

} // namespace

bool isServiceAlive() {
    try {
        android::Parcel reply;
        return requireService()->transact(kAskForInterface, android::Parcel(), &reply, 0) != android::DEAD_OBJECT;
    } catch (const LinkError&) {
        return false;
    }
}

Finding askingFinds(const std::function<Finding()>& look) {
    try {
        return look();
    } catch (const LinkError& error) {
        return {isServiceAlive() ? Verdict::Bad : Verdict::Unlinked, inOneLine(error.what())};
    } catch (const ToolError& error) {
        return {Verdict::Bad, error.what()};
    }
}

std::string millisecondsText(std::chrono::nanoseconds time) {
    char text[32];
    std::snprintf(text, sizeof(text), "%.3g ms", std::chrono::duration<double, std::milli>(time).count());
    return text;
}

std::chrono::nanoseconds timeOf(const std::function<void()>& something) {
    const auto start = std::chrono::steady_clock::now();
    something();
    return std::chrono::steady_clock::now() - start;
}

} // namespace kelutv::tool
