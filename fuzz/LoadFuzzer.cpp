// Any bytes, through every load: the result must be that of RapidJSON's own reader with its own
// detection of encodings. The library reads what is plain and well-formed itself.

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>

#include "GraftScene.h"
#include "LoadForm.h"
#include "OutputReference.h"
#include "PackageDelegate.h"
#include "PackageModel.h"
#include "PackageReference.h"
#include "PackageState.h"
#include "ParserReference.h"
#include "support/Choices.h"
#include "support/SpotChecks.h"

namespace {

using support::Encoding;

/// The reference reads with RapidJSON's recursive reader, which has no limit of its own.
constexpr int kDeepest = 1000;

/// Whether the bytes may hold a document of more levels. Closing brackets inside strings hide
/// some, but that takes several bytes for each.
bool MayBeTooDeep(const std::string& bytes) {
    int depth = 0;
    return std::any_of(bytes.begin(), bytes.end(), [&](char byte) {
        if (byte == '[' || byte == '{') ++depth;
        if (byte == ']' || byte == '}') depth = std::max(0, depth - 1);
        return depth > kDeepest;
    });
}

/// Text of a fuzzer's bytes: ASCII is itself, other bytes make units together with the next one,
/// which reaches characters of every length in UTF-8 and halves of surrogate pairs.
std::wstring WideText(const std::string& bytes) {
    std::wstring text;
    for (size_t i = 0; i < bytes.size(); ++i) {
        const auto byte = static_cast<unsigned char>(bytes[i]);
        const bool isPair = byte >= 0x80 && i + 1 < bytes.size();
        const unsigned behind = isPair ? static_cast<unsigned char>(bytes[++i]) : 0;
        text += static_cast<wchar_t>(isPair ? (byte & 0x7Fu) << 9 | behind : byte);
    }
    return text;
}

/// The bytes as an input wants them: as they are, or as text in one of the encodings, with a mark
/// or without, after blanks that move it against the blocks in which files are read.
std::string BytesOf(fuzz::Choices& choices) {
    const uint32_t form = choices.Below(11);
    const std::string blanks(choices.Below(256) * 17, ' ');
    if (form == 0) return blanks + choices.Rest();
    const Encoding encoding = support::kAllEncodings[(form - 1) / 2];
    const std::wstring text(blanks.begin(), blanks.end());
    return support::Encode(text + WideText(choices.Rest()), encoding, form % 2 == 0);
}

/// Zero-terminated text in memory of its own, with not a byte after it.
class ExactText {
public:
    explicit ExactText(const std::string& bytes)
        : size(bytes.size() / sizeof(wchar_t)), units(new wchar_t[size + 1]) {
        std::copy_n(bytes.data(), size * sizeof(wchar_t), reinterpret_cast<char*>(units.get()));
        units[size] = 0;
    }
    const wchar_t* Get() const { return units.get(); }

private:
    size_t size;
    std::unique_ptr<wchar_t[]> units;
};

/// What was written loads again, and is then the same. Halves of surrogate pairs, which come into a
/// document as escapes, are no text that loads.
void ExpectToLoadAgain(const std::wstring& tree) {
    if (tree.empty() || !model::IsWellFormed(tree)) return;
    EXPECT_EQ(tree, building::TextOf(model::ParseExactly(tree)));
    const support::Parser parser = support::NewParser();
    EXPECT_EQ(support::Success(building::TextOf(model::Parse(tree))),
              support::LoadText(*parser, tree));
}

void ExpectOfParser(const std::string& bytes, const wchar_t* text, bool withFiles,
                    fuzz::SpotChecks& checks) {
    const support::Parser parser = support::NewParser();
    const std::unique_ptr<char[]> exact(new char[bytes.size()]);
    std::copy(bytes.begin(), bytes.end(), exact.get());
    const auto length = static_cast<uint32_t>(bytes.size());
    const auto loaded = support::OutcomeOf(*parser, parser->LoadJsonBytes(exact.get(), length));
    EXPECT_EQ(model::ReferenceLoadBytes(bytes), loaded);
    if (checks.IsDue(4)) ExpectToLoadAgain(loaded.tree);
    EXPECT_EQ(model::ReferenceLoadText(text),
              support::OutcomeOf(*parser, parser->LoadJsonString(text)));
    if (!withFiles) return;
    const support::TempFile file(bytes);
    EXPECT_EQ(model::ReferenceLoadFile(file.Name()),
              support::OutcomeOf(*parser, parser->LoadJsonFile(file.Name())));
    EXPECT_TRUE(file.IsClosed());
}

/// Text that becomes the value of a key, in one of the ways in which it can.
void ExpectOfPackageValue(const std::wstring& text, const support::JsonRoute& route) {
    const support::Package package = support::NewPackage();
    model::PackageModel model;
    EXPECT_EQ(1, package->SetValueBoolean(L"a", true));
    model.Set(L"a", model::Value(true));
    EXPECT_EQ(model.SetJson(L"b", text), route.set(*package, L"b", text.c_str())) << route.name;
    EXPECT_EQ(model.State(), support::PackageStateOf(*package)) << route.name;
}

void ExpectOfPackage(const std::string& bytes, const wchar_t* text, fuzz::Choices& choices,
                     bool withFiles) {
    const support::Package package = support::LoadedPackage(L"{\"before\":1}");
    const auto expected = model::ReferencePackageText(text);
    EXPECT_EQ(expected, support::PackageOutcomeOf(*package, package->LoadString(text)));
    ExpectOfPackageValue(text, choices.Of(support::JsonRoutes()));
    if (!withFiles) return;
    const support::TempFile file(bytes);
    EXPECT_EQ(model::ReferencePackageFile(file.Name()),
              support::PackageOutcomeOf(*package, package->LoadFile(file.Name())));
    EXPECT_TRUE(file.IsClosed());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    fuzz::Choices choices(data, size);
    const bool withFiles = choices.OneIn(4);
    const auto& graft = choices.Of(withFiles ? support::FileRoutes() : support::TextRoutes());
    fuzz::Choices forPackage = choices;
    const std::string bytes = BytesOf(choices);
    if (MayBeTooDeep(bytes)) return 0;
    const ExactText text(bytes);
    fuzz::SpotChecks checks(data, size);
    ExpectOfParser(bytes, text.Get(), withFiles, checks);
    ExpectOfPackage(bytes, text.Get(), forPackage, withFiles);
    support::ExpectAsReference(graft, support::GraftSource(graft, bytes));
    return 0;
}
