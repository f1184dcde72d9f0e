#include "TextOutput.h"

#include <rapidjson/writer.h>

#include "NestingGuard.h"

namespace QXJSON {

const wchar_t* WriteText(const JsonValue& value, JsonTextBuffer& buffer) {
    buffer.Clear();
    rapidjson::Writer<JsonTextBuffer, JsonEncoding, JsonEncoding, HeapAllocator,
                      rapidjson::kWriteNanAndInfFlag>
        writer(buffer);
    Walk(value, writer);
    return buffer.GetString();
}

}  // namespace QXJSON
