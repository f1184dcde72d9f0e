#include "Output.h"

#include <cstdio>

#include "Failure.h"
#include "Files.h"
#include "Text.h"

namespace tool {

using namespace QXJSON::hosting;

namespace {

void PrintBytes(std::string_view bytes) { std::fwrite(bytes.data(), 1, bytes.size(), stdout); }

/// The library tells of a file that it cannot open, and of nothing that happens to it later. So it
/// reads what it has written.
void Save(const Generator& document, const std::wstring& file, const std::wstring& label,
          const Layout& layout) {
    const Result<void> saved = layout.indented ? document.SaveIndented(file, layout.encoding)
                                               : document.Save(file, layout.encoding);
    if (saved.Code() == QXJSON::kEscapedFailure)
        throw Failure{label + L": nested too deeply to be written"};
    if (!saved) throw Failure{label + L": the file cannot be written"};
    if (NewParser().LoadFile(file)) return;
    throw Failure{label + (layout.indented
                               ? L": not all could be written; numbers that are not finite "
                                 L"have no indented form"
                               : L": not all could be written")};
}

/// The document for the standard output, without a mark.
std::string BytesOf(const Generator& document, const Layout& layout) {
    if (layout.indented) {
        // There is no such text in memory.
        const TemporaryFile file{std::string()};
        Save(document, file.Name(), L"(standard output)", layout);
        constexpr size_t kMark = 3;
        return ReadBytes(file.Name()).value_or("").substr(kMark);
    }
    const auto bytes = document.Encoded(layout.encoding);
    if (!bytes)
        throw Failure{L"the document cannot be written: " + FromUtf8(Describe(bytes.Code()))};
    return {bytes->begin(), bytes->end()};
}

}  // namespace

void Print(std::wstring_view text) { PrintBytes(ToUtf8(text)); }

void Flush() {
    if (std::fflush(stdout) != 0 || std::ferror(stdout))
        throw Failure{L"the standard output cannot be written"};
}

void Write(const Generator& document, const std::string& out, const Layout& layout) {
    if (out == "-") {
        const bool utf16 =
            layout.encoding == Encoding::kUtf16Le || layout.encoding == Encoding::kUtf16Be;
        PrintBytes(BytesOf(document, layout));
        if (!utf16) PrintBytes("\n");
        return;
    }
    const std::wstring name = FromUtf8(out);
    const TemporaryFile file(name);
    Save(document, file.Name(), name, layout);
    file.Replace(name);
}

}  // namespace tool
