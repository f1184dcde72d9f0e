#include "Output.h"

#include <cstdio>

#include "Failure.h"
#include "Text.h"
#include "Tree.h"

namespace tool {

using QXJSON::hosting::Encoding;

namespace {

std::string_view MarkOf(Encoding encoding) {
    switch (encoding) {
        case Encoding::kUtf16Le:
            return "\xFF\xFE";
        case Encoding::kUtf16Be:
            return "\xFE\xFF";
        default:
            return "\xEF\xBB\xBF";
    }
}

}  // namespace

void Print(std::string_view text) { std::fwrite(text.data(), 1, text.size(), stdout); }
void Print(std::wstring_view text) { Print(ToUtf8(text)); }

void Flush() {
    if (std::fflush(stdout) != 0 || std::ferror(stdout))
        throw Failure{L"the standard output cannot be written"};
}

Output::Output(const std::string& out, const TextForm& textForm) : form(textForm) {
    if (out != "-") {
        sink.WriteTo(file.emplace(FromUtf8(out)).Stream());
        form.colours = Colours();
    }
    if (form.mark || (file && IsUtf16())) sink.Put(MarkOf(form.encoding));
}

bool Output::IsUtf16() const {
    return form.encoding == Encoding::kUtf16Le || form.encoding == Encoding::kUtf16Be;
}

void Output::Write(const std::function<void(Events&)>& produce) {
    if (file && hasDocument) sink.Put('\n');
    hasDocument = true;
    const auto writer = NewWriter(sink, form);
    if (form.sortKeys) {
        Tree tree;
        produce(tree);
        tree.PlaySorted(Tree::kRoot, *writer);
    } else {
        produce(*writer);
    }
    if (file) return;
    if (!IsUtf16()) sink.Put('\n');
    sink.PassOn(stdout);
}

void Output::Finish() {
    if (!file) return;
    sink.PassOn(file->Stream());
    file->Replace();
}

}  // namespace tool
