#include <gtest/gtest.h>

#include <dlfcn.h>
#include <link.h>

#include <cstdint>
#include <ostream>
#include <string>
#include <vector>

namespace {

/** One word of a virtual table: an offset counted in words, or the address of a symbol. */
struct Word {
    std::intptr_t offset = 0;
    std::string symbol;
};

struct Table {
    std::string symbol;
    std::vector<Word> words;
};

std::ostream& operator<<(std::ostream& out, const Table& table) { return out << table.symbol; }

constexpr std::intptr_t kWordSize = sizeof(void*);

Word offset(std::intptr_t words) { return {words, ""}; }

Word symbol(const std::string& name) { return {0, name}; }

/** A function that the library keeps to itself. */
Word hiddenFunction() { return {0, "hidden"}; }

/** Adjusts `this` by a number of words, then goes on to the function. */
Word thunk(std::intptr_t words, const std::string& function) {
    return symbol("_ZThn" + std::to_string(words * kWordSize) + "_" + function);
}

/** Adjusts `this` by what stands a number of words before the table, then goes on to the function. */
Word virtualThunk(std::intptr_t words, const std::string& function) {
    return symbol("_ZTv0_n" + std::to_string(words * kWordSize) + "_" + function);
}

const Word kPureVirtual = symbol("__cxa_pure_virtual");
// Inline in the platform's header.
const Word kOnFirstRef = hiddenFunction();
const Word kOnLastStrongRef = symbol("_ZN7android7RefBase15onLastStrongRefEPKv");

std::vector<Table> tables() {
    const Word audio = symbol("_ZTI5Audio");
    const Word client = symbol("_ZTIN7android12TVBaseClientE");
    const Word notifier = symbol("_ZTI13DeathNotifier");
    const Word service = symbol("_ZTIN7android14ITVBaseServiceE");
    const Word proxy = symbol("_ZTIN7android15BpTVBaseServiceE");
    return {
        {"_ZTV5Audio", {offset(0), audio, symbol("_ZN5Audio17setAudioItemValueEiiiii")}},
        {"_ZTVN7android12TVBaseClientE",
         {offset(0), client, symbol("_ZN7android12TVBaseClientD1Ev"), symbol("_ZN7android12TVBaseClientD0Ev")}},
        {"_ZTV13DeathNotifier",
         {offset(1), offset(0), notifier, symbol("_ZN13DeathNotifier10binderDiedERKN7android2wpINS0_7IBinderEEE"),
          symbol("_ZN13DeathNotifierD1Ev"), symbol("_ZN13DeathNotifierD0Ev"),
          // The shared base.
          offset(0), offset(0), offset(-1), offset(-1), notifier, virtualThunk(3, "N13DeathNotifierD1Ev"),
          virtualThunk(3, "N13DeathNotifierD0Ev"), kOnFirstRef, kOnLastStrongRef}},
        {"_ZTVN7android14ITVBaseServiceE",
         {offset(1), offset(0), service,
          // Destructors of a class that cannot be instantiated are left out.
          offset(0), offset(0), kPureVirtual, symbol("_ZNK7android14ITVBaseService22getInterfaceDescriptorEv"),
          kPureVirtual,
          // The shared base.
          offset(0), offset(0), offset(-1), offset(-1), service, offset(0), offset(0), kOnFirstRef, kOnLastStrongRef}},
        {"_ZTVN7android15BpTVBaseServiceE",
         {offset(3), offset(0), proxy, symbol("_ZN7android15BpTVBaseServiceD1Ev"),
          symbol("_ZN7android15BpTVBaseServiceD0Ev"), hiddenFunction(),
          symbol("_ZNK7android14ITVBaseService22getInterfaceDescriptorEv"),
          symbol("_ZN7android15BpTVBaseService6invokeERKNS_6ParcelEPS1_"),
          // The holder of the remote object.
          offset(2), offset(-1), proxy, thunk(1, "N7android15BpTVBaseServiceD1Ev"),
          thunk(1, "N7android15BpTVBaseServiceD0Ev"),
          // The shared base.
          offset(0), offset(0), offset(-3), offset(-3), proxy, virtualThunk(3, "N7android15BpTVBaseServiceD1Ev"),
          virtualThunk(3, "N7android15BpTVBaseServiceD0Ev"), kOnFirstRef, kOnLastStrongRef}},
    };
}

class VirtualTable : public testing::TestWithParam<Table> {
protected:
    void SetUp() override {
        mLibrary = dlopen(KELUTV_CLIENT_LIBRARY, RTLD_NOW);
        ASSERT_NE(mLibrary, nullptr) << dlerror();
        mTable = static_cast<void* const*>(dlsym(mLibrary, GetParam().symbol.c_str()));
        ASSERT_NE(mTable, nullptr) << dlerror();
    }

    void expectWord(std::size_t index, const Word& expected) const {
        SCOPED_TRACE("word " + std::to_string(index) + " " + expected.symbol);
        if (expected.symbol.empty()) {
            EXPECT_EQ(reinterpret_cast<std::intptr_t>(mTable[index]), expected.offset * kWordSize);
        } else if (expected.symbol == "hidden") {
            expectHiddenFunction(mTable[index]);
        } else {
            EXPECT_NE(dlsym(mLibrary, expected.symbol.c_str()), nullptr) << dlerror();
            EXPECT_EQ(dlsym(mLibrary, expected.symbol.c_str()), mTable[index]);
        }
    }

    static void expectHiddenFunction(const void* address) {
        Dl_info info{};
        ASSERT_NE(dladdr(address, &info), 0);
        EXPECT_STREQ(info.dli_fname, KELUTV_CLIENT_LIBRARY);
    }

    std::size_t words() const {
        Dl_info info{};
        void* symbolEntry = nullptr;
        if (dladdr1(mTable, &info, &symbolEntry, RTLD_DL_SYMENT) == 0 || symbolEntry == nullptr) {
            return 0;
        }
        return static_cast<const ElfW(Sym)*>(symbolEntry)->st_size / sizeof(void*);
    }

    void* mLibrary = nullptr;
    void* const* mTable = nullptr;
};

TEST_P(VirtualTable, HasItsSlotsInOrder) {
    const std::vector<Word>& expected = GetParam().words;
    ASSERT_EQ(words(), expected.size());
    for (std::size_t i = 0; i < expected.size(); i++) {
        expectWord(i, expected[i]);
    }
}

INSTANTIATE_TEST_SUITE_P(OfTheLibrary, VirtualTable, testing::ValuesIn(tables()),
                         [](const auto& table) { return table.param.symbol; });

} // namespace
