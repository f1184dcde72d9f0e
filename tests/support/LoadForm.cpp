#include "LoadForm.h"

#include "TempFile.h"

namespace support {
namespace {

const char* NameOf(Route route) {
    switch (route) {
        case Route::kBytes:
            return "bytes";
        case Route::kText:
            return "text";
        default:
            return "file";
    }
}

std::vector<LoadForm> MakeForms() {
    std::vector<LoadForm> forms;
    for (const bool mark : {false, true}) {
        forms.push_back({Route::kText, Encoding::kUtf16Le, mark});
        for (const Encoding encoding : kAllEncodings) {
            forms.push_back({Route::kBytes, encoding, mark});
            forms.push_back({Route::kFile, encoding, mark});
        }
    }
    return forms;
}

}  // namespace

uint64_t LoadForm::UnitSize() const { return Encode(L" ", encoding).size(); }

uint64_t LoadForm::MarkSize() const { return Encode(L"", encoding, mark).size(); }

std::ostream& operator<<(std::ostream& out, const LoadForm& form) {
    return out << NameOf(form.encoding) << ' ' << NameOf(form.route)
               << (form.mark ? " with a mark" : " without a mark");
}

const std::vector<LoadForm>& AllForms() {
    static const std::vector<LoadForm> forms = MakeForms();
    return forms;
}

LoadOutcome LoadIn(const LoadForm& form, QXJSON::IJsonParser& parser, const std::wstring& text) {
    switch (form.route) {
        case Route::kText:
            return LoadText(parser, form.mark ? L"\xFEFF" + text : text);
        case Route::kBytes:
            return LoadBytes(parser, form.Bytes(text));
        default:
            return LoadFile(parser, form.Bytes(text));
    }
}

LoadOutcome LoadBytes(QXJSON::IJsonParser& parser, const std::string& bytes) {
    const auto length = static_cast<uint32_t>(bytes.size());
    return OutcomeOf(parser, parser.LoadJsonBytes(bytes.data(), length));
}

LoadOutcome LoadText(QXJSON::IJsonParser& parser, const std::wstring& text) {
    return OutcomeOf(parser, parser.LoadJsonString(text.c_str()));
}

LoadOutcome LoadFile(QXJSON::IJsonParser& parser, const std::string& bytes) {
    const TempFile file(bytes);
    return OutcomeOf(parser, parser.LoadJsonFile(file.Name()));
}

}  // namespace support
