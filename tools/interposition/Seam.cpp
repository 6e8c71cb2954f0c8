#include "tools/interposition/Seam.h"

#include <cxxabi.h>
#include <dlfcn.h>
#include <elf.h>
#include <link.h>

#include <cstdint>
#include <cstdlib>
#include <cstring>

namespace kelutv::interposition {

namespace {

/** The tables that the dynamic linker uses of a library. */
struct Tables {
    const ElfW(Sym) * symbols = nullptr;
    const char* names = nullptr;
    const std::uint32_t* gnuHash = nullptr;
    const std::uint32_t* hash = nullptr;

    /** How many symbols there are from the first on among which are all that are not defined. */
    std::size_t count() const {
        constexpr std::size_t kFirstDefined = 1;
        constexpr std::size_t kAll = 1;
        return gnuHash != nullptr ? gnuHash[kFirstDefined] : hash != nullptr ? hash[kAll] : 0;
    }
};

/** Addresses stand there as the linker left them: moved already, or relative to where the library begins. */
const void* placeOf(const dl_phdr_info& library, ElfW(Addr) address) {
    const ElfW(Addr) moved = address < library.dlpi_addr ? address + library.dlpi_addr : address;
    return reinterpret_cast<const void*>(moved); // NOLINT(performance-no-int-to-ptr)
}

Tables tablesOf(const dl_phdr_info& library) {
    Tables tables;
    for (std::size_t i = 0; i < library.dlpi_phnum; ++i) {
        const ElfW(Phdr)& segment = library.dlpi_phdr[i];
        if (segment.p_type != PT_DYNAMIC) {
            continue;
        }
        const auto* entry = static_cast<const ElfW(Dyn)*>(placeOf(library, segment.p_vaddr + library.dlpi_addr));
        for (; entry->d_tag != DT_NULL; ++entry) {
            const void* const place = placeOf(library, entry->d_un.d_ptr);
            switch (entry->d_tag) {
            case DT_SYMTAB:
                tables.symbols = static_cast<const ElfW(Sym)*>(place);
                break;
            case DT_STRTAB:
                tables.names = static_cast<const char*>(place);
                break;
            case DT_GNU_HASH:
                tables.gnuHash = static_cast<const std::uint32_t*>(place);
                break;
            case DT_HASH:
                tables.hash = static_cast<const std::uint32_t*>(place);
                break;
            default:
                break;
            }
        }
    }
    return tables;
}

/** The library behind this program that has the name: the program has some of them itself. */
std::string libraryOf(const char* name) {
    void* const place = ::dlsym(RTLD_NEXT, name);
    Dl_info found{};
    return place != nullptr && ::dladdr(place, &found) != 0 && found.dli_fname != nullptr ? found.dli_fname : "";
}

bool isNeeded(const ElfW(Sym) & symbol) {
    return symbol.st_name != 0 && symbol.st_shndx == SHN_UNDEF && ELF64_ST_BIND(symbol.st_info) == STB_GLOBAL;
}

int readClientLibrary(dl_phdr_info* library, std::size_t /*size*/, void* read) {
    if (std::strstr(library->dlpi_name, "/libkelutvbaseclient.so") == nullptr) {
        return 0;
    }
    const Tables tables = tablesOf(*library);
    if (tables.symbols == nullptr || tables.names == nullptr) {
        return 1;
    }
    for (std::size_t i = 0; i < tables.count(); ++i) {
        if (isNeeded(tables.symbols[i])) {
            static_cast<std::vector<std::string>*>(read)->emplace_back(tables.names + tables.symbols[i].st_name);
        }
    }
    return 1;
}

} // namespace

std::vector<SeamSymbol> seamOfClientLibrary() {
    // Looked up afterwards: the linker holds its lock while it goes through the libraries.
    std::vector<std::string> names;
    ::dl_iterate_phdr(readClientLibrary, &names);
    std::vector<SeamSymbol> symbols;
    for (const std::string& name : names) {
        symbols.push_back({name, libraryOf(name.c_str())});
    }
    return symbols;
}

std::string readableName(const std::string& symbol) {
    int status = 0;
    char* const readable = abi::__cxa_demangle(symbol.c_str(), nullptr, nullptr, &status);
    std::string name = status == 0 ? readable : symbol;
    std::free(readable); // NOLINT(cppcoreguidelines-no-malloc)
    return name;
}

} // namespace kelutv::interposition
