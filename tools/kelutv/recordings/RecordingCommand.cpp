#include "tools/kelutv/recordings/RecordingCommand.h"

#include "tools/kelutv/conversion/Converter.h"
#include "tools/kelutv/output/DataOutput.h"
#include "tools/kelutv/output/StandardOutput.h"
#include "tools/kelutv/recordings/Anonymiser.h"
#include "tools/kelutv/recordings/LineText.h"
#include "tools/kelutv/recordings/LiveLine.h"
#include "tools/kelutv/recordings/RecordingCheck.h"
#include "tools/kelutv/recordings/RecordingInput.h"
#include "tools/kelutv/recordings/Selection.h"
#include "tools/kelutv/recordings/Statistics.h"
#include "tools/kelutv/text/Lists.h"
#include "tools/kelutv/text/Patterns.h"

#include <memory>

namespace kelutv::tool {

namespace {

struct RecordingOptions {
    std::string file;
    std::string output;
    SelectionOptions selection;
    std::string key;
    std::vector<std::string> more;
    std::string form;
};

using Options = std::shared_ptr<RecordingOptions>;
using Action = void (*)(const RecordingOptions&, Context&);

void show(const RecordingOptions& options, Context& context) {
    const Selection selection(options.selection);
    RecordingInput input(options.file);
    while (const auto line = input.next()) {
        if (!selection.has(*line)) {
            continue;
        }
        if (context.output.json) {
            writeData(recording::textOf(*line) + '\n');
        } else if (const std::string text = lineText(*line); !text.empty()) {
            context.output.line(text);
        }
    }
}

void check(const RecordingOptions& options, Context& context) {
    context.exit = checkRecording(options.file, context.output);
}

void cut(const RecordingOptions& options, Context& /*context*/) {
    const Selection selection(options.selection);
    RecordingInput input(options.file);
    DataOutput output(options.output);
    while (const auto line = input.next()) {
        if (selection.has(*line)) {
            output.write(recording::textOf(*line) + '\n');
        }
    }
    output.finish();
}

void anonymise(const RecordingOptions& options, Context& context) {
    const Anonymiser anonymiser(options.key.empty() ? KeyedHash() : KeyedHash(options.key),
                                patternsOf("--also", options.more));
    std::size_t unknown = 0;
    RecordingInput input(options.file);
    DataOutput output(options.output);
    while (auto line = input.next()) {
        unknown += anonymiser.mask(*line) ? 0 : 1;
        output.write(recording::textOf(*line) + '\n');
    }
    output.finish();
    if (unknown > 0) {
        context.output.message("kelutv: what it holds is not known, and stays as it is: " + counted(unknown, "line"));
    }
}

void convert(const RecordingOptions& options, Context& /*context*/) {
    const Selection selection(options.selection);
    std::optional<DataOutput> output;
    const auto converter = converterNamed(options.form, [&output](const std::string& text) { output->write(text); });
    RecordingInput input(options.file);
    output.emplace(options.output);
    converter->begin();
    while (const auto line = input.next()) {
        if (selection.has(*line)) {
            converter->add(*line);
        }
    }
    converter->finish();
    output->finish();
}

void add(Statistics& statistics, const recording::Line& line) {
    if (const auto* const transaction = std::get_if<recording::Transaction>(&line.content)) {
        statistics.add(tracedOf(*transaction));
    } else if (const auto* const event = std::get_if<recording::Event>(&line.content)) {
        statistics.addEvent(std::chrono::nanoseconds(event->moment.time));
    } else if (const auto* const gap = std::get_if<recording::Gap>(&line.content)) {
        statistics.addLeftOut(static_cast<std::uint32_t>(gap->count));
    } else if (std::holds_alternative<recording::Header>(line.content)) {
        statistics.beginSection();
    }
}

void report(const RecordingOptions& options, Context& context) {
    const Selection selection(options.selection);
    RecordingInput input(options.file);
    Statistics statistics;
    while (const auto line = input.next()) {
        if (selection.has(*line)) {
            add(statistics, *line);
        }
    }
    for (const std::string& line : statistics.lines()) {
        context.output.line(line);
    }
    context.output.document(statistics.document());
}

Subcommand addAction(const Subcommand& above, const char* name, const char* description, const Options& options,
                     Action action, Context& context) {
    Subcommand command(above, name, description);
    command.required("FILE", options->file, "The recording, or - for standard input");
    command.action([options, action, &context] { action(*options, context); });
    return command;
}

void addOutput(const Subcommand& command, const Options& options) {
    command.option("-o,--output", options->output, "FILE", "Write to this file, not to standard output");
}

void addShow(const Subcommand& above, const Options& options, Context& context) {
    const Subcommand command = addAction(above, "show",
                                         "Show a recording, a line for each call and event\n\n"
                                         "Examples:\n"
                                         "kelutv recording show field.jsonl\n"
                                         "kelutv recording show field.jsonl --from 12.5 --command 'CMD_AUDIO_*'",
                                         options, show, context);
    addSelection(command, options->selection);
}

void addCut(const Subcommand& above, const Options& options, Context& context) {
    const Subcommand command = addAction(above, "cut",
                                         "Make a recording of a part of another\n\n"
                                         "Examples:\n"
                                         "kelutv recording cut field.jsonl --from 12.5 --until 20 -o part.jsonl",
                                         options, cut, context);
    addSelection(command, options->selection);
    addOutput(command, options);
}

void addAnonymise(const Subcommand& above, const Options& options, Context& context) {
    const Subcommand command =
        addAction(above, "anonymise",
                  "Make a recording that does not tell whose television it was\n\n"
                  "Serial numbers, MAC, keys, passwords, names and the bytes of the EEPROM have\n"
                  "others in their places, the same ones for the same.\n\n"
                  "Examples:\n"
                  "kelutv recording anonymise field.jsonl -o public.jsonl\n"
                  "kelutv recording anonymise field.jsonl --also CMD_SYSTEM_DTV_CMD_TO_TV",
                  options, anonymise, context);
    command.option("--key", options->key, "TEXT",
                   "Give what has been given with this text before; else chance decides");
    command.option("--also", options->more, "REQUEST",
                   "Texts and blocks of these requests, too; may be given several times");
    addOutput(command, options);
}

void addConvert(const Subcommand& above, const Options& options, Context& context) {
    const Subcommand command =
        addAction(above, "convert",
                  "Make something else of a recording\n\n"
                  "pcapng for packet viewers, trace-event for timeline viewers, and for the\n"
                  "simulator the states at first (config) and what the television did (scenario).\n\n"
                  "Examples:\n"
                  "kelutv recording convert field.jsonl --to pcapng -o field.pcapng\n"
                  "kelutv recording convert field.jsonl --to config -o field.json",
                  options, convert, context);
    command.option("--to", options->form, "FORM", "pcapng, trace-event, scenario or config");
    addSelection(command, options->selection);
    addOutput(command, options);
}

void addReport(const Subcommand& above, const Options& options, Context& context) {
    const Subcommand command = addAction(above, "report",
                                         "Count the calls of a recording, and how long they took\n\n"
                                         "Examples:\n"
                                         "kelutv recording report field.jsonl",
                                         options, report, context);
    addSelection(command, options->selection);
}

} // namespace

void addRecordingCommand(const Command& program, Context& context, const std::vector<AddBelowRecording>& more) {
    const Options options = std::make_shared<RecordingOptions>();
    const Subcommand recording(program, "recording",
                               "Look at what 'kelutv record' has recorded\n\n"
                               "Examples:\n"
                               "kelutv recording show field.jsonl\n"
                               "kelutv recording check field.jsonl\n"
                               "kelutv recording diff before.jsonl after.jsonl");
    recording.requireSubcommand();
    addShow(recording, options, context);
    addAction(recording, "check",
              "Say what a recording holds, and what is wrong with it\n\n"
              "Examples:\n"
              "kelutv recording check field.jsonl",
              options, check, context);
    addCut(recording, options, context);
    addAnonymise(recording, options, context);
    addConvert(recording, options, context);
    addReport(recording, options, context);
    for (const AddBelowRecording add : more) {
        add(recording, context);
    }
}

} // namespace kelutv::tool
