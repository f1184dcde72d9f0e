#pragma once

#include <cstdio>
#include <optional>
#include <string>
#include <vector>

namespace tool {

/// A name with which a file can be opened even where its full name is longer than Windows allows by
/// default.
std::wstring Openable(const std::wstring& name);

/// The rest of a file, from the current position; nothing when it cannot be read.
std::optional<std::string> ReadAll(std::FILE* file);
/// The bytes of a file; nothing when it cannot be read.
std::optional<std::string> ReadBytes(const std::wstring& name);

bool IsFolder(const std::wstring& name);

/// What a search finds.
struct FoundFiles {
    std::vector<std::wstring> files;
    std::vector<std::wstring> unlisted;  ///< folders that could not be searched to their end
};

/// The files below a folder whose names match a pattern of `*` and `?`, in the order of their
/// names, those of a folder before those of the folders in it.
FoundFiles FilesBelow(const std::wstring& folder, const std::wstring& pattern);

/// The name of a temporary file, which Fill or other code creates. The file is removed at the end
/// of this object's life.
class TemporaryFile {
public:
    /// In the folder for temporary files.
    TemporaryFile();
    /// Beside another file, so that it can take its place.
    explicit TemporaryFile(const std::wstring& neighbour);
    ~TemporaryFile();
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    const std::wstring& Name() const { return name; }
    /// Creates the file with these bytes. Returns whether all could be written.
    bool Fill(const std::string& bytes) const;
    /// Replaces another file with this one, or throws Failure.
    void Replace(const std::wstring& other) const;

private:
    std::wstring name;
};

}  // namespace tool
