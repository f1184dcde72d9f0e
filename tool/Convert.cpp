// jsontool convert: the same document in another encoding.

#include <map>
#include <memory>

#include "Command.h"
#include "Input.h"
#include "Output.h"

namespace tool {

using QXJSON::hosting::Encoding;

namespace {

struct Options {
    std::string file, out, encoding;
};

const std::map<std::string, Encoding>& Encodings() {
    static const std::map<std::string, Encoding> encodings = {
        {"ascii", Encoding::kAscii},
        {"utf-16be", Encoding::kUtf16Be},
        {"utf-16le", Encoding::kUtf16Le},
        {"utf-8", Encoding::kUtf8},
    };
    return encodings;
}

int Run(const Options& options) {
    TextForm form;
    form.encoding = Encodings().at(options.encoding);
    Write(Input(options.file).Generate(), options.out, form);
    return kGood;
}

}  // namespace

Command Convert(CLI::App& program) {
    const auto options = std::make_shared<Options>();
    CLI::App* const line =
        program.add_subcommand("convert", "Writes a document in another encoding, compact");
    AddInput(*line, options->file);
    AddOutput(*line, options->out)
        ->required()
        ->description(
            "The file to write, with a byte-order mark except in ASCII; - for the standard output");
    line->add_option("--to", options->encoding,
                     "utf-8, utf-16le, utf-16be, or ascii, which escapes all other characters")
        ->required()
        ->type_name("ENCODING")
        ->transform(CLI::IsMember(Encodings(), CLI::ignore_case).description(""));
    return {line, [options] { return Run(*options); }};
}

}  // namespace tool
