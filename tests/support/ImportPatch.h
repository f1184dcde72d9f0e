#pragma once

#include <windows.h>

#include <vector>

namespace support {

/// Makes one loaded module call a function of the test in place of a function that it imports.
///
/// The module's import address table is the only thing that changes: calls that other modules, the
/// test program among them, make to the same function are not affected, and neither are functions
/// of the module's own of the same name. The replacement must have the original's signature. The
/// end of the object's life restores what it found, so that patches of one function nest.
class ImportPatch {
public:
    /// Replaces the import named `name` in `module`, whichever library it comes from.
    template <class Function>
    ImportPatch(HMODULE module, const char* name, Function* replacement) {
        Apply(module, name, reinterpret_cast<void*>(replacement));
    }
    ~ImportPatch();
    ImportPatch(const ImportPatch&) = delete;
    ImportPatch& operator=(const ImportPatch&) = delete;

    /// Whether the module imports the function by this name; when it does not, nothing changed.
    bool Found() const { return !entries.empty(); }

private:
    struct Entry {
        void** slot;
        void* original;
    };

    void Apply(HMODULE patched, const char* name, void* replacement);

    std::vector<Entry> entries;
};

}  // namespace support
