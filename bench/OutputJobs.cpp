// Writing the large documents: into memory, and into files.

#include "Documents.h"
#include "Jobs.h"
#include "Text.h"
#include "peers/All.h"

namespace bench {
namespace {

/// What a document is written by, loaded once, and as what.
template <class Writer>
class OutputContender : public PeerContender<Writer> {
public:
    OutputContender(const Document& given, Form wanted) : form(wanted), document(given) {}

    void Prepare() override {
        if (this->peer) return;
        this->peer.emplace();
        this->peer->LoadFile(document.file);
    }

protected:
    const Form form;

private:
    const Document& document;
};

template <class Writer>
class WriteContender final : public OutputContender<Writer> {
public:
    using OutputContender<Writer>::OutputContender;

    void Work(size_t) override { written = this->peer->Write(this->form); }
    uint64_t Result() override {
        const auto* const text = static_cast<const wchar_t*>(written.data);
        const size_t bytes =
            written.bytes == kZeroTerminated ? std::wcslen(text) * sizeof(wchar_t) : written.bytes;
        return SumOf({static_cast<const char*>(written.data), bytes});
    }

private:
    Written written = {};
};

/// The library saves; all others write into memory and from there, at once, into a file. In lines,
/// with indentation, or not.
template <class Writer, bool isIndented>
class Saving : public OutputContender<Writer> {
public:
    using OutputContender<Writer>::OutputContender;
    ~Saving() override { _wremove(file.c_str()); }

    void Work(size_t) override {
        if constexpr (std::is_same_v<Writer, DllBuilder>) {
            if (isIndented)
                this->peer->SaveIndented(file, this->form);
            else
                this->peer->Save(file, this->form);
        } else {
            const Written written = Text();
            WriteWhole(file, written.data, written.bytes);
        }
    }
    uint64_t Result() override { return SumOf(ReadWhole(file)); }

private:
    Written Text() {
        if constexpr (isIndented)
            return this->peer->WriteIndented();
        else
            return this->peer->Write(this->form);
    }

    const std::wstring file = TemporaryFile(L"json_bench_saved");
};

template <class Writer>
class SaveContender final : public Saving<Writer, false> {
public:
    using Saving<Writer, false>::Saving;
};
template <class Writer>
class SaveIndentedContender final : public Saving<Writer, true> {
public:
    using Saving<Writer, true>::Saving;
};

struct Variant {
    Form form;
    const char* name;
};

template <template <class> class Type, class Writer>
void AddIfWrites(Job& job, const Document& document, Form form) {
    if (Writer::Writes(form)) job.Add<Type<Writer>>(document, form);
}

/// One row for each document and form.
template <template <class> class Type, size_t count>
void RunRows(Bench& bench, Table& table, const Variant (&variants)[count]) {
    for (const Document& document : LargeDocuments()) {
        const uint64_t expected = SumOf(document.utf8);
        for (const Variant& variant : variants) {
            Job job;
            job.label = document.name + ", " + variant.name;
            job.expected = expected;
            AddIfWrites<Type, RapidJson>(job, document, variant.form);
            AddIfWrites<Type, DllBuilder>(job, document, variant.form);
            AddIfWrites<Type, Nlohmann>(job, document, variant.form);
            if constexpr (!std::is_same_v<Type<RapidJson>, SaveIndentedContender<RapidJson>>)
                AddIfWrites<Type, BoostJson>(job, document, variant.form);
            bench.Run(table, std::move(job));
        }
    }
}

}  // namespace

void RunOutputJobs(Bench& bench) {
    constexpr Variant kMemory[] = {{Form::kText, "text"},
                                   {Form::kAscii, "ASCII"},
                                   {Form::kUtf8, "UTF-8"},
                                   {Form::kUtf16Le, "UTF-16LE"},
                                   {Form::kUtf16Be, "UTF-16BE"}};
    constexpr Variant kFiles[] = {{Form::kAscii, "ASCII"},
                                  {Form::kUtf8, "UTF-8"},
                                  {Form::kUtf16Le, "UTF-16LE"},
                                  {Form::kUtf16Be, "UTF-16BE"}};
    if (Table* table = bench.Begin(
            {"output/bytes", "a document written into memory, ms", "document", 1e3, false, {}, {}}))
        RunRows<WriteContender>(bench, *table, kMemory);
    if (Table* table = bench.Begin(
            {"output/file", "a document written into a file, ms", "document", 1e3, false, {}, {}}))
        RunRows<SaveContender>(bench, *table, kFiles);
    constexpr Variant kIndented[] = {{Form::kUtf8, "UTF-8"}};
    if (Table* table = bench.Begin({"output/indented",
                                    "a document written into a file with indentation, ms",
                                    "document",
                                    1e3,
                                    false,
                                    {},
                                    {}}))
        RunRows<SaveIndentedContender>(bench, *table, kIndented);
}

}  // namespace bench
