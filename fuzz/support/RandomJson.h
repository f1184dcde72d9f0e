#pragma once

#include <string>

#include "Choices.h"

namespace fuzz {

/// A key out of a few hundred that are easily confused: they differ in case, in one
/// character or in length, contain what item paths and pointers give a meaning to, or equal each
/// other by rules that are not the library's.
std::wstring RandomKey(Choices& choices);

/// A text to be stored: plain, empty, base64 or nearly so, of control characters, beyond ASCII,
/// with halves of surrogate pairs. It contains no zero.
const wchar_t* RandomText(Choices& choices);

/// What a document may contain.
struct JsonRules {
    bool acceptNan;    ///< NaN and the infinities
    bool uniqueNames;  ///< no object has two members of one name
};

/// Well-formed JSON text whose root is an object or array, now and then a large one. It contains no
/// halves of surrogate pairs but escaped ones.
std::wstring RandomJson(Choices& choices, const JsonRules& rules);

}  // namespace fuzz
