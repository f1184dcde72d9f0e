#pragma once

#include <cstdio>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tool {

/// A name with which a file can be opened even where its full name is longer than Windows allows by
/// default.
std::wstring Openable(const std::wstring& name);

struct FileCloser {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using OpenFile = std::unique_ptr<std::FILE, FileCloser>;

/// The rest of a file, from the current position; nothing when it cannot be read.
std::optional<std::string> ReadAll(std::FILE* file);
/// The bytes of a file; nothing when it cannot be read.
std::optional<std::string> ReadBytes(const std::wstring& name);

bool IsFolder(const std::wstring& name);

constexpr wchar_t kUnreadable[] = L"the file cannot be read";
/// Why a file cannot be opened, in words; nothing where it can.
std::optional<std::wstring> WhyUnreadable(const std::wstring& name);

/// What a search finds.
struct FoundFiles {
    std::vector<std::wstring> files;
    std::vector<std::wstring> unlisted;  ///< folders that could not be searched to their end
};

/// The files below a folder whose names match a pattern of `*` and `?`, in the order of their
/// names, those of a folder before those of the folders in it.
FoundFiles FilesBelow(const std::wstring& folder, const std::wstring& pattern);

/// A new file that takes the place of another, or that of none, only when all of it was written.
/// Otherwise it is removed at the end of this object's life, and the other stays as it was.
class ReplacementFile {
public:
    /// Creates the file beside the other. Throws Failure where that is impossible, or the other is
    /// a folder.
    explicit ReplacementFile(const std::wstring& other);
    ~ReplacementFile();
    ReplacementFile(const ReplacementFile&) = delete;
    ReplacementFile& operator=(const ReplacementFile&) = delete;

    std::FILE* Stream() const { return file.get(); }
    /// Puts it in the place of the other, or throws Failure.
    void Replace();

private:
    void Close();
    void ReplaceExisting(const std::wstring& target) const;

    std::wstring label;  ///< the other, as its user names it
    std::wstring name;
    OpenFile file;
    bool isInPlace = false;
};

}  // namespace tool
