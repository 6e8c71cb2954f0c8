// Opens the teletext data stream, receives three data blocks, shows the first bytes of each, and closes the stream.

#include <kelutv/kelutv.h>

#include <keluem/emal.h>

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <deque>
#include <mutex>
#include <optional>
#include <vector>

namespace {

constexpr int kWanted = 3;
constexpr std::size_t kBytesShown = 16;
constexpr std::chrono::seconds kPatience(5);

struct Block {
    unsigned int type;
    std::vector<unsigned char> bytes;
};

/** The blocks received, handed over from the event manager's thread to main. */
class Inbox {
public:
    void put(Block block) {
        const std::lock_guard<std::mutex> lock(mMutex);
        mBlocks.push_back(std::move(block));
        mArrived.notify_one();
    }

    std::optional<Block> take() {
        std::unique_lock<std::mutex> lock(mMutex);
        if (!mArrived.wait_for(lock, kPatience, [this] { return !mBlocks.empty(); })) {
            return std::nullopt;
        }
        Block block = std::move(mBlocks.front());
        mBlocks.pop_front();
        return block;
    }

private:
    std::mutex mMutex;
    std::condition_variable mArrived;
    std::deque<Block> mBlocks;
};

// The callback carries no pointer of the application's, so the inbox is global; it is never destroyed, since a block
// may arrive while the program ends.
Inbox& inbox() {
    static auto* const inbox = new Inbox;
    return *inbox;
}

void onBlock(unsigned int type, void* data, unsigned int length) {
    const auto* const bytes = static_cast<const unsigned char*>(data);
    inbox().put({type, {bytes, bytes + length}});
}

// The delivery believes the length that leads the block, so this is where it is held against what has come.
bool isWholeBlock(const void* payload, unsigned int size) {
    std::uint32_t length = 0;
    if (size < sizeof(length)) {
        return false;
    }
    std::memcpy(&length, payload, sizeof(length));
    return length <= size - sizeof(length);
}

// The library hands blocks on but does not listen for them: that is the application's part. As the events of
// kelutv-simulator go, the lower half of the identifier is the type and the payload is the block.
void onTeletextEvent(unsigned int eventId, void* payload, unsigned int size, void*) {
    if (isWholeBlock(payload, size)) {
        KeluVbiManager::instance()->VbiDataCallback(eventId & 0xFFFFU, payload, size);
    } else {
        std::fprintf(stderr, "teletext: an event of %u bytes holds no whole block\n", size);
    }
}

void show(const Block& block) {
    std::printf("block of type %u, length %zu:", block.type, block.bytes.size());
    for (std::size_t i = 0; i < block.bytes.size() && i < kBytesShown; ++i) {
        std::printf(" %02x", block.bytes[i]);
    }
    std::puts(block.bytes.size() > kBytesShown ? " ..." : "");
}

bool fail(const char* message) {
    std::fflush(stdout);
    std::fprintf(stderr, "teletext: %s\n", message);
    return false;
}

bool showBlocks() {
    for (int i = 0; i < kWanted; ++i) {
        const std::optional<Block> block = inbox().take();
        if (!block) {
            return fail("no block came within 5 seconds");
        }
        show(*block);
    }
    return true;
}

bool receive(CKeluVbiCtrl& vbi) {
    if (vbi.open() != 0) {
        return fail("the television did not open the data stream");
    }
    const bool received =
        vbi.registVbiDataCB(onBlock) == 0 ? showBlocks() : fail("the television refused the callback");
    vbi.unRegistDataCB();
    vbi.close();
    return received;
}

} // namespace

int main() {
    CKeluVbiCtrl vbi;
    const int result = vbi.init();
    if (result != 0) {
        fail(result == -1 ? "no answer from the TV base service; is it running? (here: kelutv-simulator)"
                          : "the television did not start the data service");
        return EXIT_FAILURE;
    }
    if (EMAL_AddListener(KELU_EM_MODE_TTX, onTeletextEvent) != 0) {
        fail("cannot listen to the teletext events");
        return EXIT_FAILURE;
    }
    const bool received = receive(vbi);
    EMAL_RemoveListener(KELU_EM_MODE_TTX);
    vbi.deInit();
    return received ? EXIT_SUCCESS : EXIT_FAILURE;
}
