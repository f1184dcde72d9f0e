#pragma once

#include <cstdio>
#include <optional>
#include <string>
#include <vector>

namespace tool {

/// A name by which a file can be opened although it, with its folders, is longer than Windows
/// allows without further ado.
std::wstring Openable(const std::wstring& name);

/// What is left to be read of a file; none when that fails.
std::optional<std::string> ReadAll(std::FILE* file);
/// What a file holds; none when it cannot be read.
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

/// The name of a file that is made with Fill, or by others, and is removed at the end of its life.
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
    /// Makes the file of these bytes. Returns whether all could be written.
    bool Fill(const std::string& bytes) const;
    /// Puts the file in the place of another one, or throws Failure.
    void Replace(const std::wstring& other) const;

private:
    std::wstring name;
};

}  // namespace tool
