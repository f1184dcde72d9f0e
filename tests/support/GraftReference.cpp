#include "GraftReference.h"

#include <gtest/gtest.h>
#include <rapidjson/encodedstream.h>
#include <rapidjson/filereadstream.h>
#include <rapidjson/memorystream.h>

#include <cstdio>
#include <cwchar>

#include "GraftScene.h"
#include "OutputForm.h"
#include "OutputReference.h"
#include "ReferenceLoad.h"

namespace support {
namespace {

constexpr unsigned kFlags = rapidjson::kParseNanAndInfFlag;

Taken Judge(const ReferenceDocument& document) {
    if (document.HasParseError()) return {Taken::kBroken, L""};
    if (!document.IsObject() && !document.IsArray()) return {Taken::kScalar, L""};
    return {Taken::kContainer, ReferenceText(document)};
}

/// Parses a byte stream; tells whether bytes that are not UTF-8 were what ended it.
template <class ByteStream>
bool Detect(ByteStream& bytes, ReferenceDocument& document) {
    rapidjson::AutoUTFInputStream<unsigned, ByteStream> stream(bytes, rapidjson::kUTF8);
    document.ParseStream<kFlags, rapidjson::AutoUTF<unsigned>>(stream);
    return stream.GetType() == rapidjson::kUTF8 &&
           document.GetParseError() == rapidjson::kParseErrorStringInvalidEncoding;
}

Taken TakeText(const wchar_t* text) {
    rapidjson::MemoryStream bytes(reinterpret_cast<const char*>(text),
                                  std::wcslen(text) * sizeof(wchar_t));
    ReferenceDocument document;
    Detect(bytes, document);
    return Judge(document);
}

Taken TakeFile(const wchar_t* name) {
    std::FILE* file = _wfopen(name, L"rb");
    if (file == nullptr) return {Taken::kBroken, L""};
    char buffer[2048];
    rapidjson::FileReadStream bytes(file, buffer, sizeof buffer);
    ReferenceDocument document;
    const bool isAnsi = Detect(bytes, document);
    std::fclose(file);
    if (isAnsi) document.Parse<kFlags>(FromAnsi(ReadFileBytes(name)).c_str());
    return Judge(document);
}

}  // namespace

Taken ReferenceTake(const Operation& route, const GraftSource& source) {
    return ReadsFile(route) ? TakeFile(source.Argument()) : TakeText(source.Argument());
}

bool ExpectAsReference(const Operation& route, const GraftSource& source) {
    SCOPED_TRACE(route.name);
    GraftScene scene;
    const Arguments arguments = GraftScene::Good(route, source);
    const Taken taken = ReferenceTake(route, source);
    if (taken.kind == Taken::kContainer) {
        EXPECT_EQ(GraftScene::AnswerOf(route), route.call(*scene, arguments));
        EXPECT_EQ(GraftScene::DocumentWith(route, taken.tree), JsonOf(*scene));
    } else {
        const bool isBroken = taken.kind == Taken::kBroken;
        scene.ExpectFailure(isBroken ? BadSourceResult(route) : -3, route, arguments);
        scene.ExpectNextHandle(GraftScene::kNext);
    }
    EXPECT_TRUE(source.IsClosed());
    return taken.kind == Taken::kContainer;
}

}  // namespace support
