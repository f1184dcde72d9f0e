#pragma once

#include <cstddef>
#include <cstdint>
#include <ostream>
#include <string>
#include <vector>

#include "JsonVariant.h"

namespace support {

/// What a call returned: the result (1 or 0 for bool), and the outputs that were written, in their
/// order. Numbers are written out with all their digits, bytes as characters of the same code.
struct Answer {
    Answer(int answered = 0) : result(answered) {}
    Answer(int answered, std::vector<std::wstring> written)
        : result(answered), outputs(std::move(written)) {}
    /// One number, handle or reference was written.
    Answer(int answered, uint64_t number);

    /// The number, handle or reference that was written first; 0 where none was.
    uint64_t Number() const;

    int result;
    std::vector<std::wstring> outputs;
};

bool operator==(const Answer& a, const Answer& b);
std::ostream& operator<<(std::ostream& out, const Answer& answer);

/// Outputs as an Answer writes them out.
std::wstring Show(bool flag);
std::wstring Show(uint32_t number);
std::wstring Show(int32_t number);
std::wstring Show(uint64_t number);
std::wstring Show(int64_t number);
std::wstring Show(double number);
std::wstring Show(float number);
std::wstring Show(const wchar_t* text);
std::wstring Show(const QXJSON::JsonVariant& variant);
std::wstring ShowBytes(const void* data, size_t size);

}  // namespace support
