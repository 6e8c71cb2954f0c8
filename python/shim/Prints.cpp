#include "python/shim/Prints.h"

#include <dlfcn.h>
#include <elf.h>
#include <link.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cstdarg>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <initializer_list>

/*
 * The client library prints to the stream that the interpreter, too, may print to. Its calls go through addresses that
 * the dynamic linker has filled in; those of the functions that print are replaced. Standard output itself stays as it
 * is for everybody else, other threads among them, and so do preloaded libraries.
 */
namespace kelutv::python {

namespace {

int lengthOf(const char* format, va_list arguments) { return std::vsnprintf(nullptr, 0, format, arguments); }

[[gnu::format(printf, 1, 2)]] int keepPrintf(const char* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    const int length = lengthOf(format, arguments);
    va_end(arguments);
    return length;
}

[[gnu::format(printf, 2, 3)]] int keepPrintfChecked(int /*flag*/, const char* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    const int length = lengthOf(format, arguments);
    va_end(arguments);
    return length;
}

int keepPuts(const char* /*text*/) { return 1; }

int keepPutchar(int character) { return character; }

template <typename Function> std::uintptr_t addressOf(Function* function) {
    return reinterpret_cast<std::uintptr_t>(function);
}

std::uintptr_t insteadOf(const char* name) {
    if (std::strcmp(name, "printf") == 0) {
        return addressOf(keepPrintf);
    }
    if (std::strcmp(name, "__printf_chk") == 0) {
        return addressOf(keepPrintfChecked);
    }
    if (std::strcmp(name, "puts") == 0) {
        return addressOf(keepPuts);
    }
    return std::strcmp(name, "putchar") == 0 ? addressOf(keepPutchar) : 0;
}

/** What of a library tells where the addresses of other libraries' functions stand. */
class Relocations {
public:
    explicit Relocations(const dl_phdr_info& library) : mBase(library.dlpi_addr) {
        for (std::size_t i = 0; i < library.dlpi_phnum; ++i) {
            if (library.dlpi_phdr[i].p_type == PT_DYNAMIC) {
                read(static_cast<const ElfW(Dyn)*>(at(library.dlpi_phdr[i].p_vaddr + mBase)));
            }
        }
    }

    void replace() const {
        if (mSymbols == nullptr || mNames == nullptr) {
            return;
        }
        for (const Table& table : {mCalls, mOthers}) {
            for (std::size_t offset = 0; offset + mEntry <= table.size; offset += mEntry) {
                replace(*static_cast<const ElfW(Rel)*>(at(table.begin + offset)));
            }
        }
    }

private:
    struct Table {
        std::uintptr_t begin = 0;
        std::size_t size = 0;
    };

    static void* at(std::uintptr_t address) {
        return reinterpret_cast<void*>(address); // NOLINT(performance-no-int-to-ptr)
    }

    /** Addresses stand there as the linker left them: moved already, or relative to where the library begins. */
    std::uintptr_t moved(std::uintptr_t address) const { return address < mBase ? address + mBase : address; }

    void read(const ElfW(Dyn) * entry) {
        for (; entry->d_tag != DT_NULL; ++entry) {
            switch (entry->d_tag) {
            case DT_SYMTAB:
                mSymbols = static_cast<const ElfW(Sym)*>(at(moved(entry->d_un.d_ptr)));
                break;
            case DT_STRTAB:
                mNames = static_cast<const char*>(at(moved(entry->d_un.d_ptr)));
                break;
            case DT_PLTREL:
                mEntry = entry->d_un.d_val == DT_RELA ? sizeof(ElfW(Rela)) : sizeof(ElfW(Rel));
                break;
            case DT_JMPREL:
                mCalls.begin = moved(entry->d_un.d_ptr);
                break;
            case DT_PLTRELSZ:
                mCalls.size = entry->d_un.d_val;
                break;
            case DT_REL:
            case DT_RELA:
                mOthers.begin = moved(entry->d_un.d_ptr);
                break;
            case DT_RELSZ:
            case DT_RELASZ:
                mOthers.size = entry->d_un.d_val;
                break;
            default:
                break;
            }
        }
    }

    /** One with an addend begins like one without. */
    void replace(const ElfW(Rel) & relocation) const {
        // The symbol is what the type leaves of the word.
        constexpr unsigned int kBitsOfType = sizeof(ElfW(Addr)) == 8 ? 32 : 8;
        const std::size_t symbol = relocation.r_info >> kBitsOfType;
        const std::uintptr_t instead = symbol == 0 ? 0 : insteadOf(mNames + mSymbols[symbol].st_name);
        void* const place = at(mBase + relocation.r_offset);
        if (instead != 0 && makeWritable(place)) {
            std::memcpy(place, &instead, sizeof instead);
        }
    }

    /** Where the linker has finished it has taken the right to write away. */
    static bool makeWritable(void* place) {
        const auto page = static_cast<std::uintptr_t>(::sysconf(_SC_PAGESIZE));
        const auto address = reinterpret_cast<std::uintptr_t>(place);
        return ::mprotect(at(address & ~(page - 1)), page, PROT_READ | PROT_WRITE) == 0;
    }

    std::uintptr_t mBase;
    const ElfW(Sym) * mSymbols = nullptr;
    const char* mNames = nullptr;
    std::size_t mEntry = sizeof(ElfW(Rela));
    Table mCalls;
    Table mOthers;
};

int visit(dl_phdr_info* library, std::size_t /*size*/, void* /*unused*/) {
    if (std::strstr(library->dlpi_name, "/libkelutvbaseclient.so") == nullptr) {
        return 0;
    }
    Relocations(*library).replace();
    return 1;
}

} // namespace

void keepPrintsBack() { ::dl_iterate_phdr(visit, nullptr); }

} // namespace kelutv::python
