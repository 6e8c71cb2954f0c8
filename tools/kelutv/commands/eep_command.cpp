#include "tools/kelutv/commands/Commands.h"
#include "tools/kelutv/output/StandardOutput.h"
#include "tools/kelutv/service/EepArea.h"
#include "tools/kelutv/text/Hex.h"
#include "tools/kelutv/text/HexDump.h"
#include "tools/kelutv/text/InputFile.h"
#include "tools/kelutv/text/Lists.h"
#include "wire/text/Numbers.h"
#include "wire/text/Shown.h"

#include <algorithm>
#include <cstdio>
#include <memory>
#include <optional>

namespace kelutv::tool {

namespace {

struct EepOptions {
    std::string area;
    std::string address;
    std::string offset = "0";
    std::string length;
    std::vector<std::string> bytes;
    std::string file;
    bool raw = false;
    bool whole = false;
    bool noFlush = false;
    bool verify = false;
};

int numberOf(const std::string& text, const std::string& what) {
    const std::optional<std::int32_t> number = wire::int32Of(text);
    if (!number || *number < 0) {
        throw UsageError(what + ": '" + wire::shown(text) + "' is not a number; write it like 35328 or 0x8A00");
    }
    return *number;
}

/** An address, also as the lines of a dump begin: eight hexadecimal digits. */
int addressOf(const std::string& text) {
    constexpr std::size_t kDigitsOfDump = 8;
    constexpr int kHexadecimal = 16;
    if (text.size() == kDigitsOfDump) {
        if (const auto address = wire::wholeNumber<std::int32_t>(text, kHexadecimal); address && *address >= 0) {
            return *address;
        }
    }
    return numberOf(text, "ADDRESS");
}

std::uint8_t byteOf(const std::string& text) {
    const int number = numberOf(text, "BYTES");
    if (number > 0xFF) {
        throw UsageError("BYTES: a byte goes from 0 to 255, not " + wire::shown(text));
    }
    return static_cast<std::uint8_t>(number);
}

Bytes bytesOfWord(const std::string& word) {
    if (word.compare(0, 4, "hex:") == 0) {
        return bytesOfHex(word.substr(4));
    }
    if (word.compare(0, 1, "@") == 0) {
        return bytesOfFile(word.substr(1));
    }
    Bytes bytes;
    for (const std::string& number : split(word, ',')) {
        bytes.push_back(byteOf(number));
    }
    return bytes;
}

Bytes bytesOf(const std::vector<std::string>& words) {
    Bytes bytes;
    for (const std::string& word : words) {
        const Bytes more = bytesOfWord(word);
        bytes.insert(bytes.end(), more.begin(), more.end());
    }
    return bytes;
}

Json blockDocument(const EepArea& area, int address, const Bytes& bytes) {
    return {{"area", area.name}, {"address", address}, {"length", bytes.size()}, {"bytes", hexOf(bytes)}};
}

void printRaw(const Bytes& bytes) { writeData({bytes.begin(), bytes.end()}); }

void listAreas(const Output& output) {
    Json areas = Json::array();
    for (const EepArea& area : eepAreas()) {
        char line[128];
        std::snprintf(line, sizeof(line), "%-8s 0x%04X to 0x%04X %6d bytes  %s", area.name,
                      static_cast<unsigned int>(area.first), static_cast<unsigned int>(area.last), area.size(),
                      area.meaning);
        output.line(line);
        areas.add(
            {{"area", area.name}, {"first", area.first}, {"last", area.last}, {"flushed", area.commit != nullptr}});
    }
    output.document(areas);
}

void dump(const EepOptions& options, const Output& output) {
    const EepArea& area = eepAreaNamed(options.area);
    const int offset = numberOf(options.offset, "--offset");
    if (offset >= area.size()) {
        throw UsageError("--offset: the area " + std::string(area.name) + " has the offsets 0 to " +
                         std::to_string(area.size() - 1) + ", not " + wire::shown(options.offset));
    }
    const int address = area.first + offset;
    const int length = options.length.empty() ? area.size() - offset : numberOf(options.length, "--length");
    area.requireBlock(address, length);
    const Bytes bytes = area.read(address, length);
    if (options.raw) {
        printRaw(bytes);
        return;
    }
    for (const std::string& line : hexDump(bytes, address, !options.whole)) {
        output.line(line);
    }
    output.document(blockDocument(area, address, bytes));
}

void read(const EepOptions& options, const Output& output) {
    const EepArea& area = eepAreaNamed(options.area);
    const int address = addressOf(options.address);
    const int length = options.length.empty() ? 1 : numberOf(options.length, "LENGTH");
    area.requireBlock(address, length);
    const Bytes bytes = area.read(address, length);
    if (options.raw) {
        printRaw(bytes);
        return;
    }
    output.line(spacedHexOf(bytes));
    output.document(blockDocument(area, address, bytes));
}

void verify(const EepArea& area, int address, const Bytes& written) {
    const Bytes there = area.read(address, static_cast<int>(written.size()));
    const auto [wanted, found] = std::mismatch(written.begin(), written.end(), there.begin());
    if (wanted != written.end()) {
        const int at = address + static_cast<int>(wanted - written.begin());
        throw ServiceError("the byte at " + addressText(at) + " reads back as " + std::to_string(*found) + ", not " +
                           std::to_string(*wanted));
    }
}

void store(const EepArea& area, int address, const Bytes& bytes, const EepOptions& options, const Output& output) {
    area.requireBlock(address, static_cast<int>(bytes.size()));
    area.write(address, bytes);
    if (!options.noFlush) {
        area.flush();
    }
    if (options.verify) {
        verify(area, address, bytes);
    }
    output.message("kelutv: " + bytesText(bytes.size()) + " written from " + addressText(address) + " on");
    output.document(blockDocument(area, address, bytes));
}

void write(const EepOptions& options, const Output& output) {
    store(eepAreaNamed(options.area), addressOf(options.address), bytesOf(options.bytes), options, output);
}

/** The file is what the command works on, and no word of the command line. */
Bytes imageIn(const std::string& path) {
    try {
        return bytesOfInput(path);
    } catch (const UsageError& error) {
        throw ToolError(Exit::Failure, error.what());
    }
}

void load(const EepOptions& options, const Output& output) {
    const EepArea& area = eepAreaNamed(options.area);
    const Bytes content = imageIn(options.file);
    if (content.size() != static_cast<std::size_t>(area.size())) {
        throw UsageError(wire::shown(options.file, wire::kMostOfPath) + " has " + bytesText(content.size()) +
                         "; the area " + area.name + " needs exactly " + std::to_string(area.size()));
    }
    store(area, area.first, content, options, output);
}

using Options = std::shared_ptr<EepOptions>;
using Action = void (*)(const EepOptions&, const Output&);

Subcommand addAction(const Subcommand& eep, const char* name, const char* description, const Options& options,
                     Action action, Context& context) {
    Subcommand command(eep, name, description);
    command.required("AREA", options->area, "The area; kelutv eep areas lists them");
    command.action([options, action, &context] { action(*options, context.output); });
    return command;
}

void addStoreOptions(const Subcommand& command, const Options& options) {
    command.flag("--no-flush", options->noFlush, "Leave what is written uncommitted; a reboot forgets it");
    command.flag("--verify", options->verify, "Read the bytes back and compare them");
}

void addDump(const Subcommand& eep, const Options& options, Context& context) {
    const Subcommand command = addAction(eep, "dump",
                                         "Show an area as a hex dump\n\n"
                                         "Examples:\n"
                                         "kelutv eep dump tv\n"
                                         "kelutv eep dump flash --offset 0x8A00 --length 32\n"
                                         "kelutv eep dump tv --raw > tv.img",
                                         options, dump, context);
    command.option("--offset", options->offset, "N", "Begin this many bytes behind the area's first");
    command.option("--length", options->length, "N", "Show this many bytes, not all to the end");
    command.flag("--raw", options->raw, "Write the bytes themselves");
    command.flag("-v,--no-squeezing", options->whole, "Show lines that repeat the one before them");
}

void addRead(const Subcommand& eep, const Options& options, Context& context) {
    const Subcommand command = addAction(eep, "read",
                                         "Show the bytes at an address\n\n"
                                         "Examples:\n"
                                         "kelutv eep read tv 0x8A00 16",
                                         options, read, context);
    command.required("ADDRESS", options->address, "The first byte's address, in the memory");
    command.optional("LENGTH", options->length, "How many bytes; one when left out");
    command.flag("--raw", options->raw, "Write the bytes themselves");
}

void addWrite(const Subcommand& eep, const Options& options, Context& context) {
    const Subcommand command =
        addAction(eep, "write",
                  "Write bytes to an address\n\n"
                  "Nothing is written unless all of it is inside the area. The flash is flushed behind it.\n\n"
                  "Examples:\n"
                  "kelutv eep write tv 0x8A00 1 2 0xFF\n"
                  "kelutv eep write tv 0x8A00 hex:0102ff --verify\n"
                  "kelutv eep write eep 0x100 @serial.bin",
                  options, write, context);
    command.required("ADDRESS", options->address, "The first byte's address, in the memory");
    command.requiredWords("BYTES", options->bytes, "Numbers from 0 to 255, hex:DIGITS, or @FILE with the bytes");
    addStoreOptions(command, options);
}

void addLoad(const Subcommand& eep, const Options& options, Context& context) {
    const Subcommand command = addAction(eep, "load",
                                         "Write a whole area from a file of its size\n\n"
                                         "Examples:\n"
                                         "kelutv eep load tv tv.img --verify",
                                         options, load, context);
    command.required("FILE", options->file, "The bytes of the area, or - for standard input");
    addStoreOptions(command, options);
}

} // namespace

void addEepCommand(const Command& program, Context& context) {
    const Options options = std::make_shared<EepOptions>();
    const Subcommand eep(program, "eep",
                         "Read and write the EEPROM and the flash EEPROM\n\n"
                         "Examples:\n"
                         "kelutv eep areas\n"
                         "kelutv eep dump tv\n"
                         "kelutv eep write tv 0x8A00 hex:0102ff");
    eep.requireSubcommand();
    const Subcommand areas(eep, "areas", "List the areas with their addresses");
    areas.action([&context] { listAreas(context.output); });
    addDump(eep, options, context);
    addRead(eep, options, context);
    addWrite(eep, options, context);
    addLoad(eep, options, context);
}

} // namespace kelutv::tool
