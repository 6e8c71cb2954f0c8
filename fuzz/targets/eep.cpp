#include "fuzz/support/Input.h"
#include "fuzz/support/ScratchFile.h"
#include "fuzz/support/Target.h"

#include "simulator/television/EepStore.h"

#include <array>
#include <optional>
#include <stdexcept>
#include <string>

/** EEP files of any content, and what is written to the memories in them, against two plain arrays. */
namespace kelutv::fuzz {
namespace {

using simulator::EepStore;
using simulator::Memory;

constexpr std::size_t kSize = EepStore::kSize;
constexpr std::size_t kFileSize = 2 * kSize;
/** Each flushes the file to the disk. */
constexpr std::size_t kMostCommits = 2;

std::string wholeFile(Input& input) {
    const Bytes start = input.block();
    std::string content(start.begin(), start.end());
    content.resize(kFileSize, '\0');
    return content;
}

/** Nothing for a file that is refused. */
std::optional<EepStore> open(const ScratchFile& file) {
    try {
        return EepStore(file.path());
    } catch (const std::runtime_error& error) {
        require(std::string(error.what()).find(file.path()) != std::string::npos, "a refusal names the file");
        return std::nullopt;
    }
}

class Session {
public:
    Session(Input& input, const ScratchFile& file, EepStore store, std::string content)
        : mInput(input), mFile(file), mStore(std::move(store)), mWritten(std::move(content)), mCommitted(mWritten) {}

    void run() {
        while (!mInput.isEmpty()) {
            step();
        }
        // A second store would be refused.
        mStore.reset();
        const std::optional<EepStore> again = open(mFile);
        require(again && again->read(Memory::Eep, 0, kSize) == mCommitted.substr(0, kSize) &&
                    again->read(Memory::FlashEep, 0, kSize) == mCommitted.substr(kSize),
                "what was committed is in the file");
    }

private:
    void step() {
        const Memory memory = mInput.flag() ? Memory::Eep : Memory::FlashEep;
        const std::size_t start = memory == Memory::Eep ? 0 : kSize;
        switch (mInput.below(4)) {
        case 0:
            read(memory, start);
            break;
        case 1:
            write(memory, start);
            break;
        case 2:
            if (mCommits++ < kMostCommits) {
                mStore->commit(memory);
                mCommitted.replace(start, kSize, mWritten, start, kSize);
            }
            break;
        default:
            mStore->revert(memory);
            mWritten.replace(start, kSize, mCommitted, start, kSize);
        }
    }

    void read(Memory memory, std::size_t start) {
        const auto address = mInput.number<std::int32_t>();
        const auto length = mInput.number<std::int16_t>();
        if (EepStore::covers(address, length)) {
            const auto count = static_cast<std::size_t>(std::max<std::int16_t>(length, 0));
            require(mStore->read(memory, address, count) ==
                        mWritten.substr(start + static_cast<std::size_t>(address), count),
                    "what was written is read");
        }
    }

    void write(Memory memory, std::size_t start) {
        const auto address = mInput.number<std::int32_t>();
        const Bytes bytes = mInput.block();
        const std::string text(bytes.begin(), bytes.end());
        if (EepStore::covers(address, static_cast<std::int64_t>(text.size()))) {
            mStore->write(memory, address, text);
            mWritten.replace(start + static_cast<std::size_t>(address), text.size(), text);
        }
        require(mWritten.size() == kFileSize, "the memories keep their size");
    }

    Input& mInput;
    const ScratchFile& mFile;
    std::optional<EepStore> mStore;
    std::string mWritten;
    std::string mCommitted;
    std::size_t mCommits = 0;
};

} // namespace
} // namespace kelutv::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace kelutv::fuzz;
    Input input(data, size);
    const ScratchFile file;
    std::string content(kFileSize, '\0');
    const std::size_t kind = input.below(8);
    if (kind == 0) {
        const Bytes bytes = input.block();
        file.write({bytes.begin(), bytes.end()});
    } else if (kind != 1) {
        content = wholeFile(input);
        file.write(content);
    }
    if (auto store = open(file)) {
        require(kind != 0, "a file of another size is refused");
        Session(input, file, std::move(*store), std::move(content)).run();
    }
    return 0;
}
