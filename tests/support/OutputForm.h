#pragma once

#include <stdint.h>

#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "IJsonGenerator.h"
#include "JsonDll.h"
#include "OutputReference.h"

namespace support {

/// One way in which a generator hands its document out: through which operation, in which encoding
/// and style.
struct OutputForm {
    enum Operation { kText, kBytes, kFile, kIndentedFile };

    Operation operation;
    int32_t selector = 0;
    int32_t style = 0;

    bool IsFile() const { return operation == kFile || operation == kIndentedFile; }
};

std::ostream& operator<<(std::ostream& out, const OutputForm& form);

/// All forms: text; bytes and files in each encoding; indented files in both styles.
const std::vector<OutputForm>& AllOutputForms();
/// Those of them that write files.
const std::vector<OutputForm>& FileForms();

/// What an output came to: the result and the bytes in memory or in the file. Nothing where the
/// operation returned a null pointer or left no file.
struct Written {
    int result;
    std::optional<std::string> bytes;
};

bool operator==(const Written& a, const Written& b);
std::ostream& operator<<(std::ostream& out, const Written& written);

/// Writes the generator's document. A file is made for the call; the test fails when the generator
/// has not closed it.
Written WriteIn(const OutputForm& form, QXJSON::IJsonGenerator& generator);

/// Writes the generator's document to the named file: the operation's result.
int SaveIn(const OutputForm& form, QXJSON::IJsonGenerator& generator, const wchar_t* fileName);

/// What is to come of writing this document, by RapidJSON's own writers.
Written ReferenceIn(const OutputForm& form, const model::Value& document);

/// Expects of every form what RapidJSON's own writers make of the same document.
void ExpectAllForms(const model::Value& document, QXJSON::IJsonGenerator& generator);

/// A generator that has loaded `json`; the test fails when the load does.
Generator GeneratorOf(const std::wstring& json);

/// The generator's document as compact text.
std::wstring JsonOf(QXJSON::IJsonGenerator& generator);

}  // namespace support
