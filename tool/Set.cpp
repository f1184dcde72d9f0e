// jsontool set: a document with another value in one place.

#include <memory>
#include <optional>

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

/// A place in a document under construction that a value can be put into.
struct Place {
    const Generator& document;
    Container parent;
    std::wstring parentPath;
    std::optional<std::wstring> key;  ///< none to append

    template <class T>
    int Put(const T& value) const {
        return (key ? parent.Add(*key, value) : parent.Append(value)).Code();
    }
    /// By path, where a number without a fraction stays a double.
    int PutDouble(double value) const {
        uint32_t handle = 0;
        const wchar_t* const path = parentPath.c_str();
        return key ? document->AddObjectItemDoubleByPath(path, key->c_str(), value, &handle)
                   : document->AddArrayItemDoubleByPath(path, value, &handle);
    }
    int PutJson(std::wstring_view json) const {
        return (key ? parent.AddJson(*key, json) : parent.AppendJson(json)).Code();
    }
};

int Put(const Place& place, const Item& value) {
    switch (value.Kind()) {
        case ValueKind::kString:
            return place.Put(value.As<std::wstring_view>().Get());
        case ValueKind::kNumber:
            if (const auto number = value.As<int64_t>()) return place.Put(*number);
            if (const auto number = value.As<uint64_t>()) return place.Put(*number);
            return place.PutDouble(value.As<double>().Get());
        case ValueKind::kBoolean:
            return place.Put(value.As<bool>().Get());
        case ValueKind::kNull:
            return place.Put(nullptr);
        default:
            return place.PutJson(value.Json().Get());
    }
}

/// Puts a value in the place of an element that is there.
int Replace(const Place& element, const std::wstring& path, const Item& value) {
    const bool object = value.Kind() == ValueKind::kObject;
    if (!object && value.Kind() != ValueKind::kArray) return Put(element, value);
    // No JSON can be grafted there, but an empty container can be put there and filled.
    const auto container =
        object ? element.parent.AddObject(*element.key) : element.parent.AddArray(*element.key);
    int result = container.Code();
    for (const auto& child : value.Children()) {
        if (result != QXJSON::kSuccess) break;
        Place place = {element.document, *container, path, std::nullopt};
        if (object) place.key = child.name;
        result = Put(place, child.value);
    }
    return result;
}

int SetMember(const Place& object, const ItemPath& path, bool exists, const Item& value) {
    Place member = object;
    member.key = exists ? path.RememberedKey() : path.Key();
    return Put(member, value);
}

int SetElement(const Place& array, const ItemPath& path, uint32_t count, const Item& value) {
    const uint32_t position = path.Position();
    if (position == 0 || position > count + 1)
        throw Failure{path.segment + L": the array has the positions 1 to " +
                      std::to_wstring(count) + L", and " + std::to_wstring(count + 1) +
                      L" to append"};
    if (position == count + 1) return Put(array, value);
    // An item that has a handle is overwritten in any parent, by the last part of the path that its
    // handle is remembered under. In an array that is its position from 0.
    Place element = array;
    element.key = std::to_wstring(position - 1);
    return Replace(element, array.parentPath + L"/" + path.segment, value);
}

/// Sets a value in a document, which `original` has loaded as well.
void SetAt(const Generator& document, const Parser& original, const std::wstring& path,
           const Item& value) {
    int result = 0;
    if (path == L"/") {
        if (value.Kind() != ValueKind::kObject && value.Kind() != ValueKind::kArray)
            throw Failure{L"the root has to be an object or an array"};
        result = document.Load(value.Json().Get()).Code();
    } else {
        const ItemPath parts(path);
        const auto parent = original.At(parts.parent);
        if (!parent) throw Failure{L"there is nothing at " + parts.parent};
        // What has a handle is overwritten, and all else would be there twice.
        const bool exists = static_cast<bool>(document.At(path));
        const Place place = {document, document.At(parts.parent).Get(), parts.parent, std::nullopt};
        if (parent->Kind() == ValueKind::kObject)
            result = SetMember(place, parts, exists, value);
        else if (parent->Kind() == ValueKind::kArray)
            result = SetElement(place, parts, parent->Count().Get(), value);
        else
            throw Failure{parts.parent + L" is neither an object nor an array"};
    }
    if (result != QXJSON::kSuccess)
        throw Failure{path + L" cannot be set: " + FromUtf8(Describe(result))};
}

/// The only element of an array that holds what the command line says.
Parser ValueOf(const Options& options) {
    const std::wstring text = FromUtf8(options.value);
    Parser parser = NewParser();
    const auto loaded = parser.Load(L"[" + (options.isString ? JsonText().Of(text) : text) + L"]");
    if (!loaded) {
        std::wstring message = text + L": no JSON; --string takes it for a text: ";
        throw Failure{message.append(parser.Failure().message)};
    }
    if (parser.Root().Get().Count().Get() != 1) throw Failure{text + L": not one value"};
    return parser;
}

int Run(const Options& options) {
    const Parser value = ValueOf(options);
    const Input input(options.file);
    const Parser original = input.Parse();
    const Generator document = input.Generate();
    SetAt(document, original, FromUtf8(options.path), value.At(L"/1").Get());
    Write(document, options.out, {});
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
                     "position behind the last element appends one")
        ->required();
    line->add_option("VALUE", options->value, "The value as JSON")->required();
    AddOutput(*line, options->out);
    line->add_flag("--string", options->isString, "Take VALUE for the characters of a string");
    line->footer("Write -- before a VALUE that begins with - and a letter.");
    return {line, [options] { return Run(*options); }};
}

}  // namespace tool
