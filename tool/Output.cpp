#include "Output.h"

#include <cstdio>

#include "Failure.h"
#include "Files.h"
#include "Text.h"

namespace tool {

using namespace QXJSON::hosting;

namespace {

constexpr wchar_t kLoneSurrogate[] = L"a surrogate is without its other half";

void PrintBytes(std::string_view bytes) { std::fwrite(bytes.data(), 1, bytes.size(), stdout); }

[[noreturn]] void FailWriting(const std::wstring& label, const TextForm& form) {
    const std::wstring notFinite = form.indented ? L", or a number is not finite" : L"";
    throw Failure{label + L": not all could be written: there is no room for it, or " +
                  kLoneSurrogate + notFinite};
}

/// The library reports a file that it cannot open, but nothing that happens to it later. So the
/// file is read back.
void Save(const Generator& document, const std::wstring& file, const std::wstring& label,
          const TextForm& form) {
    const Result<void> saved = form.indented ? document.SaveIndented(file, form.encoding)
                                             : document.Save(file, form.encoding);
    if (saved.Code() == QXJSON::kEscapedFailure)
        throw Failure{label + L": too large for the memory"};
    if (!saved) throw Failure{label + L": the file cannot be written"};
    if (!NewParser().LoadFile(file)) FailWriting(label, form);
}

/// The document as bytes for the standard output, without a mark.
std::string BytesOf(const Generator& document, const TextForm& form) {
    const std::wstring label = L"(standard output)";
    if (form.indented) {
        // The library writes indented text to files only.
        const TemporaryFile file;
        Save(document, file.Name(), label, form);
        const auto bytes = ReadBytes(file.Name());
        constexpr size_t kMark = 3;
        if (!bytes || bytes->size() < kMark)
            throw Failure{file.Name() + L": a temporary file cannot be read"};
        return bytes->substr(kMark);
    }
    const auto bytes = document.Encoded(form.encoding);
    if (!bytes)
        throw Failure{L"the document cannot be written: " + FromUtf8(Describe(bytes.Code()))};
    if (bytes->size > UINT32_MAX) throw Failure{label + L": 4 GiB at most; a file can be larger"};
    if (!NewParser().LoadBytes(bytes->data, bytes->size)) FailWriting(label, form);
    return {bytes->begin(), bytes->end()};
}

}  // namespace

void Print(std::wstring_view text) { PrintBytes(ToUtf8(text)); }

void Flush() {
    if (std::fflush(stdout) != 0 || std::ferror(stdout))
        throw Failure{L"the standard output cannot be written"};
}

void Write(const Generator& document, const std::string& out, const TextForm& form) {
    if (out == "-") {
        const bool utf16 =
            form.encoding == Encoding::kUtf16Le || form.encoding == Encoding::kUtf16Be;
        PrintBytes(BytesOf(document, form));
        if (!utf16) PrintBytes("\n");
        return;
    }
    const std::wstring name = FromUtf8(out);
    const TemporaryFile file(name);
    Save(document, file.Name(), name, form);
    file.Replace(name);
}

void Write(std::wstring_view json, const std::string& out) {
    const std::wstring label = out == "-" ? L"(standard output)" : FromUtf8(out);
    if (!HasWholePairs(json)) throw Failure{label + L": " + kLoneSurrogate};
    if (out == "-") {
        Print(json);
        Print(L"\n");
        return;
    }
    const TemporaryFile file(label);
    if (!file.Fill("\xEF\xBB\xBF" + ToUtf8(json)))
        throw Failure{label + L": the file cannot be written"};
    if (!NewParser().LoadFile(file.Name())) throw Failure{label + L": not all could be written"};
    file.Replace(label);
}

}  // namespace tool
