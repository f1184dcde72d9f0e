#include "MessageBuffer.h"

#include <cstdlib>
#include <cstring>
#include <cwchar>

#include "MessageCatalogue.h"

namespace QXJSON {

MessageBuffer::~MessageBuffer() { FreeArea(); }

void MessageBuffer::FreeArea() {
    if (area != initial) std::free(area);
}

bool MessageBuffer::Reserve(uint32_t newSize) {
    Clear();
    if (!area || size < newSize) {
        FreeArea();
        area = static_cast<uint8_t*>(std::calloc(newSize, 1));
        size = newSize;
    }
    used = newSize;
    return area != nullptr;
}

bool MessageBuffer::FetchMessage(int code, const wchar_t** text) {
    if (!area) return false;
    Clear();
    *text = LookUpMessage(code);
    return true;
}

const wchar_t* MessageBuffer::CopyMessage(int code) {
    const wchar_t* const text = LookUpMessage(code);
    const size_t bytes = (std::wcslen(text) + 1) * sizeof(wchar_t);
    if (!*text || !Reserve(static_cast<uint32_t>(bytes))) return nullptr;
    std::memcpy(area, text, bytes);
    return reinterpret_cast<const wchar_t*>(area);
}

void MessageBuffer::Clear() {
    if (area) std::memset(area, 0, used);
    used = 0;
}

}  // namespace QXJSON
