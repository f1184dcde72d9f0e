#include "Input.h"

#include <cstdio>
#include <utility>

#include "Failure.h"
#include "Files.h"
#include "Position.h"
#include "Text.h"

namespace tool {

using namespace QXJSON::hosting;

namespace {

std::string ReadStandardInput() {
    auto bytes = ReadAll(stdin);
    if (!bytes) throw Failure{L"the standard input cannot be read"};
    return std::move(*bytes);
}

/// What an offset means, or why it is 0.
std::wstring Remark(const LoadFailure& failure, const std::string& bytes) {
    // The messages of the other failures without an offset say everything.
    if (failure.offset == 0 && failure.message == L"Invalid value.")
        return L" (the root must be an object or an array)";
    if (const auto position = PositionBefore(failure.offset, bytes))
        return L" (line " + std::to_wstring(position->line) + L", column " +
               std::to_wstring(position->column) + L")";
    if (!IsUtf8(bytes))
        return L" (not UTF-8: the offset counts characters of the ANSI code page if the failure "
               L"comes after the first byte that is not UTF-8)";
    return L"";
}

}  // namespace

Input::Input(const std::string& argument) : name(FromUtf8(argument)) {
    if (argument == "-") standardInput = ReadStandardInput();
}

std::wstring Input::Label() const { return standardInput ? L"(standard input)" : name; }

std::optional<std::wstring> Input::LoadInto(const Parser& parser) const {
    if (standardInput && standardInput->size() > UINT32_MAX)
        return Label() + L": 4 GiB at most; a file can be larger";
    const Result<void> loaded = standardInput
                                    ? parser.LoadBytes(standardInput->data(), standardInput->size())
                                    : parser.LoadFile(Openable(name));
    if (loaded) return std::nullopt;
    return Diagnosis(parser, loaded.Code());
}

std::wstring Input::Diagnosis(const Parser& parser, int result) const {
    if (result == QXJSON::kEscapedFailure)
        return Label() + L": nested too deeply, or too large for the memory";
    const LoadFailure failure = parser.Failure();
    std::wstring text = Label() + L":" + std::to_wstring(failure.offset) + L": ";
    text += failure.message;
    const std::optional<std::string> bytes = standardInput ? standardInput : ReadBytes(name);
    return bytes ? text + Remark(failure, *bytes) : text;
}

Parser Input::Parse() const {
    Parser parser = NewParser();
    if (const auto wrong = LoadInto(parser)) throw Failure{*wrong};
    return parser;
}

Generator Input::Generate() const {
    Generator generator = NewGenerator();
    std::optional<TemporaryFile> file;  // because generators load no bytes
    if (standardInput && !file.emplace().Fill(*standardInput))
        throw Failure{file->Name() + L": a temporary file cannot be written"};
    const auto loaded = generator.LoadFile(file ? file->Name() : Openable(name));
    if (loaded) return generator;
    // A generator does not report what is wrong, a parser does.
    Parse();
    throw Failure{Label() + L": " + FromUtf8(Describe(loaded.Code()))};
}

}  // namespace tool
