#pragma once

#include <string>
#include <vector>

namespace bench {

/// A large document, as bytes, as text and in a file.
struct Document {
    std::string name;
    std::string utf8;
    std::wstring text;
    std::wstring file;
};

/// canada, citm_catalog and twitter from the folder that the environment variable JSON_TEST_DATA
/// names; without it, generated documents of similar shapes.
const std::vector<Document>& LargeDocuments();

/// The number-th of an endless list of different keys, all letters.
std::wstring Key(size_t number);

/// Some of the keys from `first` to before `last`, each once at most, in an order that is random
/// but the same in every run.
std::vector<std::wstring> ShuffledKeys(size_t first, size_t last, size_t most);

/// The number that ShuffledKeys' key stands for.
size_t KeyNumber(const std::wstring& key);

/// An object whose members are the first `count` keys; the value of each is its number, followed
/// by `fraction`.
std::wstring ObjectText(size_t count, const wchar_t* fraction = L"");

/// A file in the folder for temporary files.
std::wstring TemporaryFile(const std::wstring& name);

}  // namespace bench
