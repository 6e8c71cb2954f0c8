#include "tools/kelutv/calls/Call.h"
#include "tools/kelutv/commands/Commands.h"
#include "tools/kelutv/settings/Screen.h"
#include "tools/kelutv/text/FunctionNamed.h"
#include "wire/text/Nearest.h"
#include "wire/text/Numbers.h"
#include "wire/text/Shown.h"

#include <memory>

namespace kelutv::tool {

namespace {

using Words = std::vector<std::string>;

void addParts(Screen& screen) {
    for (const char* const name :
         {"screen", "half-standby", "last-power-off", "wakeup", "power-on-mode", "suspend-mode"}) {
        screen.add(settingNamed(name));
    }
}

void suspend(const Words& words) {
    if (words.size() != 1) {
        throw UsageError("power suspend takes nothing more");
    }
    callFunction(functionNamed("linux_tv_SystemSetting_suspend"), {});
}

void resume(const Words& words) {
    const std::string mode = words.size() > 1 ? words[1] : "0";
    if (words.size() > 2 || !wire::wholeNumber<int>(mode)) {
        throw UsageError("power resume takes a wake-up mode, a whole number, or nothing for 0");
    }
    callFunction(functionNamed("linux_tv_SystemSetting_resume"), {mode});
}

void run(const Output& output, const Words& words) {
    if (words.empty()) {
        return showScreen(output, addParts);
    }
    const std::string& action = words.front();
    if (action != "suspend" && action != "resume") {
        throw UsageError("power can do suspend and resume, not '" + wire::shown(action) + '\'' +
                         wire::nearestHint(action, {"suspend", "resume"}));
    }
    action == "suspend" ? suspend(words) : resume(words);
    output.document({{"done", action}});
}

} // namespace

void addPowerCommand(const Command& program, Context& context) {
    const auto words = std::make_shared<Words>();
    const Subcommand command(program, "power",
                             "Show what is known of the power, suspend the television or wake it\n"
                             "The modes are numbers of the service's own; the library has no function that tells "
                             "whether the television is suspended.\n\n"
                             "Examples:\n"
                             "kelutv power\n"
                             "kelutv power suspend\n"
                             "kelutv power resume");
    command.words("ACTION", *words, "Nothing to show, suspend, or resume with a wake-up mode if need be");
    command.action([&context, words] { run(context.output, *words); });
}

} // namespace kelutv::tool
