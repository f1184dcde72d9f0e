#pragma once

#include <ostream>
#include <string>
#include <vector>

#include "Encode.h"
#include "LoadOutcome.h"

namespace support {

enum class Route { kBytes, kText, kFile };

constexpr Route kAllRoutes[] = {Route::kBytes, Route::kText, Route::kFile};

/// One way in which a text can reach the parser: through which of the loads, in which encoding and
/// with or without a byte-order mark.
struct LoadForm {
    Route route;
    Encoding encoding;
    bool mark;

    uint64_t UnitSize() const;
    uint64_t MarkSize() const;
    bool IsFile() const { return route == Route::kFile; }
    /// The bytes that the load gets to see.
    std::string Bytes(const std::wstring& text) const { return Encode(text, encoding, mark); }
};

std::ostream& operator<<(std::ostream& out, const LoadForm& form);

/// All forms: bytes and files in each encoding, UTF-16 text; each with and without a mark.
const std::vector<LoadForm>& AllForms();

/// Loads a text in a form.
LoadOutcome LoadIn(const LoadForm& form, QXJSON::IJsonParser& parser, const std::wstring& text);

/// The three loads on the same data, as the caller sees them. LoadFile makes a file for the call.
LoadOutcome LoadBytes(QXJSON::IJsonParser& parser, const std::string& bytes);
LoadOutcome LoadText(QXJSON::IJsonParser& parser, const std::wstring& text);
LoadOutcome LoadFile(QXJSON::IJsonParser& parser, const std::string& bytes);

}  // namespace support
