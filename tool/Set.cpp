// jsontool set: a document with another value in one place.

#include <memory>
#include <vector>

#include "Command.h"
#include "Failure.h"
#include "Input.h"
#include "ItemPath.h"
#include "JsonText.h"
#include "Output.h"
#include "Text.h"

namespace tool {

using namespace QXJSON::hosting;

namespace {

struct Options {
    std::string file, path, value, out = "-";
    bool isString = false;
};

/// The JSON of the value on the command line.
std::wstring ValueOf(const Options& options) {
    const std::wstring text = FromUtf8(options.value);
    if (options.isString) return Quoted(text);
    const Parser parser = NewParser();
    if (!parser.Load(L"[" + text + L"]")) {
        std::wstring message = text + L": not JSON; --string treats it as a text: ";
        throw Failure{message.append(parser.Failure().message)};
    }
    const std::wstring array = JsonOf(parser.Root().Get());
    const std::vector<Part> parts = PartsOf(array);
    if (parts.size() != 1) throw Failure{text + L": not one value"};
    return std::wstring(parts[0].value);
}

bool IsContainer(std::wstring_view json) {
    return KindOf(json) == ValueKind::kObject || KindOf(json) == ValueKind::kArray;
}

/// What comes before a value that is new in its container.
std::wstring Introduction(std::wstring_view container, const std::wstring& segment) {
    const size_t count = PartsOf(container).size();
    const std::wstring separator = count > 0 ? L"," : L"";
    if (KindOf(container) == ValueKind::kObject)
        return separator + Quoted(UnescapedKey(segment)) + L":";
    if (PositionOf(segment) == count + 1) return separator;
    throw Failure{segment + L": the array has the positions 1 to " + std::to_wstring(count) +
                  L", and " + std::to_wstring(count + 1) + L" to append"};
}

/// The JSON of a document with another value in one place.
std::wstring WithValueAt(std::wstring_view json, ItemPath path, const std::wstring& value) {
    if (path.segments.empty()) {
        if (!IsContainer(value)) throw Failure{L"the root must be an object or an array"};
        return value;
    }
    const std::wstring last = path.segments.back();
    path.segments.pop_back();
    const auto parent = ValueAt(json, path);
    if (!parent) throw Failure{L"there is nothing at " + path.Text()};
    if (!IsContainer(*parent)) throw Failure{path.Text() + L" is neither an object nor an array"};

    const auto before = Find(*parent, last);
    const std::wstring added = before ? value : Introduction(*parent, last) + value;
    const std::wstring_view place = before ? before->value : parent->substr(parent->size() - 1, 0);
    const auto at = static_cast<size_t>(place.data() - json.data());
    return std::wstring(json.substr(0, at)).append(added).append(json.substr(at + place.size()));
}

int Run(const Options& options) {
    const std::wstring value = ValueOf(options);
    const Parser document = Input(options.file).Parse();
    const std::wstring json = JsonOf(document.Root().Get());
    Write(WithValueAt(json, ItemPath(FromUtf8(options.path)), value), options.out);
    return kGood;
}

}  // namespace

Command Set(CLI::App& program) {
    const auto options = std::make_shared<Options>();
    CLI::App* const line =
        program.add_subcommand("set", "Writes a document with another value in one place");
    AddInput(*line, options->file);
    line->add_option("PATH", options->path,
                     "The item path of a member or element; the member may be new, and the "
                     "position after the last element appends one")
        ->required();
    line->add_option("VALUE", options->value, "The value as JSON")->required();
    AddOutput(*line, options->out);
    line->add_flag("--string", options->isString, "Treat VALUE as the characters of a string");
    line->footer(std::string(kItemPaths) +
                 "\nPut -- before a VALUE that begins with - and a letter.");
    return {line, [options] { return Run(*options); }};
}

}  // namespace tool
