#include "Kinds.h"

namespace record {

void FileIn::WriteFile(Sink& sink, const FoundFile& file, const wchar_t* name) {
    if (file.tag == Tag::kFileSize) return sink.Put(Tag::kFileSize, file.size);
    if (file.tag != Tag::kBytes) return sink.Put(file.tag);
    const auto size = static_cast<uint32_t>(file.size);
    if (sink.extent.hashed) {
        const FileHash found = HashFile(name, size);
        return sink.PutHash(Tag::kBytesHash, found.size, found.hash);
    }
    sink.PutBytes([=](uint8_t* place) { return ReadFileBytes(name, place, size); });
}

}  // namespace record
