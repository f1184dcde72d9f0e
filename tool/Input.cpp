#include "Input.h"

#include <io.h>

#include <cstdio>
#include <utility>

#include "Failure.h"
#include "Files.h"
#include "Findings.h"
#include "Position.h"
#include "Progress.h"
#include "Text.h"

namespace tool {

using namespace QXJSON::hosting;

namespace {

constexpr wchar_t kStandardInput[] = L"(standard input)";

std::string ReadStandardInput() {
    ProgressOf(kStandardInput, 0);
    auto bytes = ReadAll(stdin);
    if (!bytes) throw Failure{L"the standard input cannot be read"};
    return std::move(*bytes);
}

std::wstring InWords(const Position& position) {
    return L"(line " + std::to_wstring(position.line) + L", column " +
           std::to_wstring(position.column) + L")";
}

}  // namespace

Input::Input(const std::string& argument) : name(FromUtf8(argument)) {
    if (argument != "-") return;
    memory = ReadStandardInput();
    name = kStandardInput;
}

void Input::Open(const std::function<void(ByteStream&)>& use) const {
    if (memory) {
        ByteStream bytes(*memory);
        use(bytes);
        return;
    }
    const OpenFile file(_wfopen(Openable(name).c_str(), L"rb"));
    if (!file) throw Failure{Label() + L": " + WhyUnreadable(name).value_or(kUnreadable)};
    const __int64 size = _filelengthi64(_fileno(file.get()));
    ProgressOf(Label(), size > 0 ? static_cast<uint64_t>(size) : 0);
    ByteStream bytes(file.get());
    use(bytes);
    if (bytes.Failed()) throw Failure{Label() + L": " + kUnreadable};
}

ReadingResult Input::Scan(Events& events) const {
    ReadingResult result = {};
    Open([&](ByteStream& bytes) { result = ReadJson(bytes, events); });
    return result;
}

std::wstring Input::AnsiText() const {
    const auto bytes = memory ? memory : ReadBytes(name);
    const auto text = bytes ? FromAnsi(*bytes) : std::nullopt;
    if (!text) throw Failure{Label() + L": too large to be read in the ANSI code page"};
    return *text;
}

void Input::Read(Events& events, bool fromAnsi) const {
    NoEvents ignored;
    const bool isAnsi = fromAnsi && Scan(ignored).isNotUtf8;
    const ReadingResult result = isAnsi ? ReadJson(AnsiText(), events) : Scan(events);
    if (result.good && result.isContainer) return;
    if (result.isNotUtf8)
        throw Failure{Label() + L":" + std::to_wstring(result.place + 1) + L": not UTF-8 " +
                      PositionInBytes(result.place + 1) +
                      L"; --ansi reads it in the ANSI code page"};
    const Parser parser = NewParser();
    throw Failure{LoadInto(parser).value_or(Label() + L": " + kUnreadable)};
}

bool Input::HoldsScalar() const {
    NoEvents ignored;
    const ReadingResult result = Scan(ignored);
    return result.good && !result.isContainer;
}

std::vector<Oddity> Input::Oddities() const {
    std::vector<Oddity> oddities;
    Findings findings;
    const ReadingResult result = Scan(findings);
    std::optional<std::wstring> text;
    if (result.isNotUtf8) {
        text = AnsiText();
        Findings others;
        ReadJson(*text, others);
        findings.notFinite.reset();
        findings.repeatedName = others.repeatedName;
        oddities.push_back({result.place + 1, L"not UTF-8, read in the ANSI code page " +
                                                  PositionInBytes(result.place + 1)});
    }
    const auto add = [&](std::optional<uint64_t> place, const wchar_t* what) {
        if (place)
            oddities.push_back({*place, what + (text ? InWords(PositionBefore(*place, *text))
                                                     : PositionInBytes(*place))});
    };
    add(findings.notFinite, L"NaN or an infinity ");
    add(findings.repeatedName, L"a name that is repeated in its object ");
    if (result.good && !result.isWhole) add(result.place + 1, L"text after a U+0000 is not read ");
    return oddities;
}

std::optional<std::wstring> Input::LoadInto(const Parser& parser) const {
    if (memory && memory->size() > UINT32_MAX)
        return Label() + L": 4 GiB at most; a file can be larger";
    const Result<void> loaded =
        memory ? parser.LoadBytes(memory->data(), memory->size()) : parser.LoadFile(Openable(name));
    if (loaded) return std::nullopt;
    return Diagnosis(parser, loaded.Code());
}

std::wstring Input::Diagnosis(const Parser& parser, int result) const {
    if (result == QXJSON::kEscapedFailure)
        return Label() + L": nested too deeply, or too large for the memory";
    if (!memory)
        if (const auto why = WhyUnreadable(name)) return Label() + L": " + *why;
    const LoadFailure failure = parser.Failure();
    return Label() + L":" + std::to_wstring(failure.offset) + L": " +
           std::wstring(failure.message) + Remark(failure.offset);
}

std::wstring Input::Remark(uint64_t offset) const {
    NoEvents ignored;
    const ReadingResult result = Scan(ignored);
    if (result.good) return result.isContainer ? L"" : L" (the root must be an object or an array)";
    if (offset == 0) return L"";
    // After a byte that is not UTF-8 the library has started again in the ANSI code page, where it
    // counts the characters before the one that does not fit.
    if (result.isNotUtf8)
        return L" " + InWords(PositionBefore(offset + 1, AnsiText())) +
               L", read in the ANSI code page";
    return L" " + PositionInBytes(offset);
}

std::wstring Input::PositionInBytes(uint64_t offset) const {
    Position position = {};
    Open([&](ByteStream& bytes) { position = PositionBefore(offset, bytes); });
    return InWords(position);
}

}  // namespace tool
