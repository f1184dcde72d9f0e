#pragma once

#include "Files.h"
#include "Form.h"
#include "OperationList.h"
#include "Results.h"
#include "Views.h"

/// \file
/// What a parameter of an operation can be: how it is recorded. Each kind has
///
///   kBefore, kAfter     how many values it has in the record of the call and in that of its return
///   Look()              reads the host's memory before the call, and may fault; LookCarefully()
///                       takes its place where that happened
///   Bound(), Write()    how many bytes its values before the call take at most, and the values
///   kForm               how its numbers are to be read
///   LookAfter(), ...    the same after the call, whose result is known
///
/// Kinds own nothing, because a fault may end a call.

namespace record {

/// What has no value after the call.
struct Input {
    static constexpr int kBefore = 1, kAfter = 0;
    static constexpr bool kLooks = false, kLooksAfter = false;
    static constexpr Form kForm = Form::kSigned;
    void Look() {}
    void LookCarefully() {}
    void LookAfter(uint64_t) {}
    void LookAfterCarefully(uint64_t) {}
    size_t BoundAfter() const { return 0; }
    void WriteAfter(Sink&) const {}
};

template <class T>
class Number : public Input {
public:
    explicit Number(T value) : bits(BitsOf(value)) {}
    static constexpr Form kForm = FormOf<T>();
    size_t Bound() const { return kNumberSize; }
    void Write(Sink& sink) const { sink.Put(Tag::kNumber, bits); }

private:
    uint64_t bits;
};

/// A pointer that is only passed on: recorded as the number that it is.
using Opaque = Number<void*>;

class ReferenceIn : public Input {
public:
    explicit ReferenceIn(uint64_t address) : address(address) {}
    size_t Bound() const { return kNumberSize; }
    void Write(Sink& sink) const {
        const Reference found = sink.references.Find(address);
        if (found.object) return sink.Put(found);
        sink.Put(Tag::kNumber, address);
    }

private:
    uint64_t address;
};

class DelegateIn : public Input {
public:
    explicit DelegateIn(const QXJSON::IJsonPackageDelegate* delegate)
        : delegate(static_cast<const NumberedDelegate*>(delegate)) {}
    size_t Bound() const { return kNumberSize; }
    void Write(Sink& sink) const {
        delegate ? sink.Put(Tag::kNumber, delegate->number) : sink.Put(Tag::kNull);
    }

private:
    const NumberedDelegate* delegate;
};

template <class View>
class Viewed : public Input {
public:
    template <class... Arguments>
    explicit Viewed(Arguments... arguments) : view(arguments...) {}
    static constexpr bool kLooks = true;
    void Look() { view.Look(); }
    void LookCarefully() { view.LookCarefully(); }
    size_t Bound() const { return view.Bound(); }
    void Write(Sink& sink) const { view.Write(sink); }

protected:
    View view;
};

using TextIn = Viewed<TextView>;
using BytesIn = Viewed<BytesView>;
using CharactersIn = Viewed<CharactersView>;

/// The name of a file that is read: its second value is what the file holds.
class FileIn : public Viewed<TextView> {
public:
    explicit FileIn(const wchar_t* name) : Viewed(name) {}
    static constexpr int kBefore = 2;
    size_t Bound() const { return view.Bound() + BoundOf(file); }
    void Look() {
        view.Look();
        Find();
    }
    void LookCarefully() {
        view.LookCarefully();
        Find();
    }
    void Write(Sink& sink) const {
        view.Write(sink);
        WriteFile(sink, file, view.Text());
    }
    static size_t BoundOf(const FoundFile& file) {
        return kDataSize + (file.tag == Tag::kBytes ? file.size : 0);
    }
    static void WriteFile(Sink& sink, const FoundFile& file, const wchar_t* name);

private:
    void Find() {
        if (view.IsWhole()) file = FindFile(view.Text());
    }

    FoundFile file = {Tag::kNoFile, 0};
};

/// A variant: its second value is the text or the number.
class VariantAt : public Viewed<VariantView> {
public:
    explicit VariantAt(const QXJSON::JsonVariant* variant) : Viewed(variant) {}
    static constexpr int kBefore = 2;
};

/// The same as a copy.
class VariantIn : public Viewed<VariantView> {
public:
    explicit VariantIn(QXJSON::JsonVariant variant) : Viewed(variant) {}
    static constexpr int kBefore = 2;
};

/// The name of a file that is written: what it holds is the value after the call.
class FileOut : public Viewed<TextView> {
public:
    explicit FileOut(const wchar_t* name) : Viewed(name) {}
    static constexpr int kAfter = 1;
    void LookAfter(uint64_t result) {
        isWritten = result == kDone && view.IsWhole();
        if (isWritten) file = FindFile(view.Text());
    }
    size_t BoundAfter() const { return FileIn::BoundOf(file); }
    void WriteAfter(Sink& sink) const {
        if (!isWritten) return sink.Put(Tag::kLeft, 0);
        FileIn::WriteFile(sink, file, view.Text());
    }

private:
    bool isWritten = false;
    FoundFile file = {Tag::kNoFile, 0};
};

}  // namespace record

#include "Outputs.h"
