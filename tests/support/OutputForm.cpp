#include "OutputForm.h"

#include <gtest/gtest.h>

#include "TempFile.h"

namespace support {
namespace {

std::string BytesOf(const std::wstring& text) {
    return std::string(reinterpret_cast<const char*>(text.data()), text.size() * sizeof(wchar_t));
}

Written WriteText(QXJSON::IJsonGenerator& generator) {
    const wchar_t* text = L"untouched";
    const int result = generator.GetJsonString(&text);
    if (text == nullptr) return {result, {}};
    return {result, BytesOf(text)};
}

Written WriteBytes(QXJSON::IJsonGenerator& generator, int32_t selector) {
    const uint8_t* data = nullptr;
    uint64_t length = 0;
    const int result = generator.GetJsonBytes(&data, &length, selector);
    if (data == nullptr) return {result, {}};
    return {result, std::string(reinterpret_cast<const char*>(data), length)};
}

Written WriteFile(const OutputForm& form, QXJSON::IJsonGenerator& generator) {
    const TempFile file;
    const int result = SaveIn(form, generator, file.Name());
    if (!file.Exists()) return {result, {}};
    EXPECT_TRUE(file.IsClosed()) << form;
    return {result, file.Bytes()};
}

std::vector<OutputForm> MakeFileForms() {
    std::vector<OutputForm> forms;
    for (const int32_t selector : support::kAllSelectors) {
        forms.push_back({OutputForm::kFile, selector});
        for (const int32_t style : {0, 1})
            forms.push_back({OutputForm::kIndentedFile, selector, style});
    }
    return forms;
}

std::vector<OutputForm> MakeForms() {
    std::vector<OutputForm> forms = FileForms();
    forms.push_back({OutputForm::kText});
    for (const int32_t selector : support::kAllSelectors)
        forms.push_back({OutputForm::kBytes, selector});
    return forms;
}

}  // namespace

std::ostream& operator<<(std::ostream& out, const OutputForm& form) {
    switch (form.operation) {
        case OutputForm::kText:
            return out << "text";
        case OutputForm::kBytes:
            return out << "bytes in encoding " << form.selector;
        case OutputForm::kFile:
            return out << "file in encoding " << form.selector;
        default:
            return out << "indented file in encoding " << form.selector << ", style " << form.style;
    }
}

const std::vector<OutputForm>& AllOutputForms() {
    static const std::vector<OutputForm> forms = MakeForms();
    return forms;
}

const std::vector<OutputForm>& FileForms() {
    static const std::vector<OutputForm> forms = MakeFileForms();
    return forms;
}

bool operator==(const Written& a, const Written& b) {
    return a.result == b.result && a.bytes == b.bytes;
}

std::ostream& operator<<(std::ostream& out, const Written& written) {
    out << "result " << written.result << ", ";
    if (!written.bytes) return out << "nothing";
    constexpr size_t kEnough = 400;
    return out << written.bytes->size() << " bytes "
               << testing::PrintToString(written.bytes->substr(0, kEnough));
}

int SaveIn(const OutputForm& form, QXJSON::IJsonGenerator& generator, const wchar_t* fileName) {
    if (form.operation == OutputForm::kFile) return generator.SaveToFile(fileName, form.selector);
    return generator.SaveToFileEx(fileName, form.selector, form.style);
}

Written WriteIn(const OutputForm& form, QXJSON::IJsonGenerator& generator) {
    switch (form.operation) {
        case OutputForm::kText:
            return WriteText(generator);
        case OutputForm::kBytes:
            return WriteBytes(generator, form.selector);
        default:
            return WriteFile(form, generator);
    }
}

Written ReferenceIn(const OutputForm& form, const model::Value& document) {
    switch (form.operation) {
        case OutputForm::kText:
            return {1, BytesOf(model::ReferenceText(document))};
        case OutputForm::kBytes:
            return {1, model::ReferenceBytes(document, form.selector)};
        default:
            return {1, model::ReferenceFile(document, form.selector,
                                            form.operation == OutputForm::kIndentedFile)};
    }
}

void ExpectAllForms(const model::Value& document, QXJSON::IJsonGenerator& generator) {
    for (const OutputForm& form : AllOutputForms())
        EXPECT_EQ(ReferenceIn(form, document), WriteIn(form, generator)) << form;
}

Generator GeneratorOf(const std::wstring& json) {
    Generator generator = NewGenerator();
    uint32_t root = 0;
    EXPECT_EQ(1, generator->LoadJsonString(json.c_str(), &root))
        << "could not load the test's document";
    return generator;
}

std::wstring JsonOf(QXJSON::IJsonGenerator& generator) {
    const wchar_t* text = nullptr;
    EXPECT_EQ(1, generator.GetJsonString(&text));
    return text == nullptr ? L"" : text;
}

}  // namespace support
