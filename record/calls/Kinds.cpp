#include "Kinds.h"

namespace record {

void FileIn::WriteFile(Sink& sink, const FoundFile& file, const wchar_t* name) {
    if (file.tag == Tag::kFileSize) return sink.Put(Tag::kFileSize, file.size);
    if (file.tag != Tag::kBytes) return sink.Put(file.tag);
    const auto size = static_cast<uint32_t>(file.size);
    sink.PutBytes([=](uint8_t* place) { return ReadFileBytes(name, place, size); });
}

}  // namespace record
