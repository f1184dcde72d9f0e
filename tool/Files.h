#pragma once

#include <optional>
#include <string>
#include <vector>

namespace tool {

/// A name by which a file can be opened although it, with its folders, is longer than Windows
/// allows without further ado.
std::wstring Openable(const std::wstring& name);

/// What a file holds; none when it cannot be read.
std::optional<std::string> ReadBytes(const std::wstring& name);

bool IsFolder(const std::wstring& name);

/// The files below a folder whose names match a pattern of `*` and `?`, in the order of their
/// names, those of a folder before those of the folders in it.
std::vector<std::wstring> FilesBelow(const std::wstring& folder, const std::wstring& pattern);

/// A file that is removed at the end of its life.
class TemporaryFile {
public:
    /// In the folder for temporary files, with these bytes.
    explicit TemporaryFile(const std::string& bytes);
    /// Beside another file, so that it can take its place; it is not made.
    explicit TemporaryFile(const std::wstring& neighbour);
    ~TemporaryFile();
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    const std::wstring& Name() const { return name; }
    /// Puts the file in the place of another one, or throws Failure.
    void Replace(const std::wstring& other) const;

private:
    std::wstring name;
};

}  // namespace tool
