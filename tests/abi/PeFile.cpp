#include "PeFile.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace pe {

PeFile::PeFile(const std::wstring& name) {
    std::ifstream file(std::filesystem::path(name), std::ios::binary);
    bytes.assign(std::istreambuf_iterator<char>(file), {});
}

const IMAGE_NT_HEADERS64* PeFile::Headers() const {
    if (bytes.size() < sizeof(IMAGE_DOS_HEADER)) return nullptr;
    const auto* dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(bytes.data());
    const auto offset = static_cast<size_t>(dos->e_lfanew);
    if (dos->e_magic != IMAGE_DOS_SIGNATURE || offset + sizeof(IMAGE_NT_HEADERS64) > bytes.size())
        return nullptr;
    const auto* headers = reinterpret_cast<const IMAGE_NT_HEADERS64*>(bytes.data() + offset);
    return headers->OptionalHeader.Magic == IMAGE_NT_OPTIONAL_HDR64_MAGIC ? headers : nullptr;
}

/// What the loader would put at an address relative to the image.
template <class T>
const T* PeFile::At(DWORD address) const {
    const IMAGE_NT_HEADERS64* headers = Headers();
    const IMAGE_SECTION_HEADER* section = IMAGE_FIRST_SECTION(headers);
    for (int i = 0; i < headers->FileHeader.NumberOfSections; ++i, ++section) {
        const DWORD offset = address - section->VirtualAddress;
        if (address >= section->VirtualAddress && offset < section->SizeOfRawData)
            return reinterpret_cast<const T*>(bytes.data() + section->PointerToRawData + offset);
    }
    return nullptr;
}

DWORD PeFile::DirectoryAddress(int directory) const {
    return Headers()->OptionalHeader.DataDirectory[directory].VirtualAddress;
}

bool PeFile::Has(int directory) const {
    return Headers()->OptionalHeader.DataDirectory[directory].Size != 0;
}

std::vector<std::string> PeFile::Exports() const {
    std::vector<std::string> names;
    const auto* table = At<IMAGE_EXPORT_DIRECTORY>(DirectoryAddress(IMAGE_DIRECTORY_ENTRY_EXPORT));
    if (!table) return names;
    const DWORD* addresses = At<DWORD>(table->AddressOfNames);
    for (DWORD i = 0; i < table->NumberOfNames; ++i) names.push_back(At<char>(addresses[i]));
    return names;
}

std::vector<std::string> PeFile::Imports() const {
    std::vector<std::string> names;
    const auto* entry = At<IMAGE_IMPORT_DESCRIPTOR>(DirectoryAddress(IMAGE_DIRECTORY_ENTRY_IMPORT));
    for (; entry && entry->Name != 0; ++entry) {
        std::string name = At<char>(entry->Name);
        std::transform(name.begin(), name.end(), name.begin(),
                       [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
        names.push_back(name);
    }
    return names;
}

DWORD PeFile::Symbol(const std::string& name) const {
    const IMAGE_FILE_HEADER& header = Headers()->FileHeader;
    const char* const symbols = bytes.data() + header.PointerToSymbolTable;
    const char* const names = symbols + size_t{header.NumberOfSymbols} * IMAGE_SIZEOF_SYMBOL;
    for (DWORD i = 0; i < header.NumberOfSymbols; ++i) {
        const auto& symbol =
            *reinterpret_cast<const IMAGE_SYMBOL*>(symbols + size_t{i} * IMAGE_SIZEOF_SYMBOL);
        // Names of up to eight characters stand in the symbol itself.
        if (symbol.N.Name.Short == 0 && name == names + symbol.N.Name.Long)
            return IMAGE_FIRST_SECTION(Headers())[symbol.SectionNumber - 1].VirtualAddress +
                   symbol.Value;
        i += symbol.NumberOfAuxSymbols;
    }
    return 0;
}

}  // namespace pe
