#pragma once

#include <string>
#include <string_view>

#include "Library.h"

namespace tool {

/// Has the library write single values, as it writes them inside of documents.
class JsonText {
public:
    JsonText() : scratch(NewGenerator()) {}

    /// The JSON of a value.
    std::wstring Of(const QXJSON::hosting::Item& item) const;
    /// A text as a JSON string.
    std::wstring Of(std::wstring_view text) const;

private:
    std::wstring OfNumber(const QXJSON::hosting::Item& item) const;
    std::wstring OfOnlyElement() const;

    QXJSON::hosting::Generator scratch;
};

}  // namespace tool
