// jsontool convert: the same document in another encoding.

#include <map>
#include <memory>

#include "Command.h"
#include "Output.h"

namespace tool {

using QXJSON::hosting::Encoding;

namespace {

struct Options {
    InputOptions input;
    std::string out, encoding;
    TextForm form;
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
    TextForm form = options.form;
    form.encoding = Encodings().at(options.encoding);
    Output output(options.out, form);
    output.Write([&](Events& writer) { options.input.Read(writer); });
    output.Finish();
    return kGood;
}

}  // namespace

Command Convert(CLI::App& program) {
    const auto options = std::make_shared<Options>();
    CLI::App* const line = AddCommand(program, "convert", "[FILE] -o OUT --to ENCODING",
                                      "Writes a document in another encoding");
    AddInput(*line, options->input);
    AddOutput(*line, options->out, Need::kRequired);
    std::vector<std::string> names;
    for (const auto& encoding : Encodings()) names.push_back(encoding.first);
    AddChoice(*line,
              {"--to", "ENCODING",
               "utf-8, utf-16le, utf-16be, or ascii, which escapes all other characters"},
              options->encoding, names, Need::kRequired);
    AddForm(*line, options->form);
    AddFooter(*line, "A file in UTF-16 begins with a byte-order mark without --bom too.");
    return {line, [options] { return Run(*options); }};
}

}  // namespace tool
