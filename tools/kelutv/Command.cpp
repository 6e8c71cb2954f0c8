#include "Command.h"

#include "CommandLine.h"

#include <algorithm>
#include <exception>
#include <map>

namespace kelutv::tool {

namespace {

void addGeneralOptions(CLI::App& app, Context& context) {
    static const std::map<std::string, Color> colors{
        {"auto", Color::Automatic}, {"always", Color::Always}, {"never", Color::Never}};
    app.add_flag("--json", context.output.json, "Print data as JSON, one document a line");
    app.add_flag("-q,--quiet", context.output.quiet, "Print data and errors, no other messages");
    app.add_option("--color", context.output.color, "Colour on standard output: auto, always or never")
        ->transform(CLI::CheckedTransformer(colors))
        ->option_text("WHEN");
}

Exit runParsed(CLI::App& app, const Context& context, std::vector<std::string> words) {
    std::reverse(words.begin(), words.end()); // The order in which the parser takes them.
    try {
        app.parse(words);
        return context.exit;
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? Exit::Success : Exit::Usage;
    } catch (const ToolError& error) {
        Output::complain(error.what());
        return error.exit();
    } catch (const std::exception& error) {
        Output::complain(error.what());
        return Exit::Failure;
    }
}

} // namespace

void addCommands(CLI::App&, Context&) {}

Exit runCommandLine(std::vector<std::string> words) {
    Context context;
    CLI::App app("Reads, changes and watches the television.\n\nExample: kelutv call audio.setVolume 35 speaker",
                 "kelutv");
    app.set_version_flag("--version", "kelutv " KELUTV_VERSION);
    app.require_subcommand(1);
    app.fallthrough();
    addGeneralOptions(app, context);
    addCommands(app, context);
    return runParsed(app, context, std::move(words));
}

} // namespace kelutv::tool
