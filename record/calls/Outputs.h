#pragma once

#include <cstring>

#include "Form.h"
#include "Results.h"
#include "Views.h"

/// \file
/// The kinds of Kinds.h that are outputs.

namespace record {

/// A number of the size of T; of a larger one, its first bytes.
template <class T>
using UnsignedOf =
    std::conditional_t<sizeof(T) == 1, uint8_t,
                       std::conditional_t<sizeof(T) == 2, uint16_t,
                                          std::conditional_t<sizeof(T) == 4, uint32_t, uint64_t>>>;

/// An output of type T. Before the call it is only seen whether it can be used, and what is in it.
/// Some outputs of calls that succeed are left as they were: of a number, what was there before
/// says all; of what leads to more, the content counts wherever a call succeeds (`always`).
template <class T, bool always = true>
class Output {
public:
    explicit Output(T* target) : target(target) {}
    static constexpr int kBefore = 1, kAfter = 1;
    static constexpr bool kLooks = true, kLooksAfter = false;
    static constexpr Form kForm = Form::kSigned;

    void Look() {
        if (!target) return;
        before = Load<T>(target);
        state = Tag::kGiven;
    }
    void LookCarefully() {
        state = target ? Tag::kBad : Tag::kNull;
        if (target && ReadableBytes(target, sizeof(T)) == sizeof(T)) Look();
    }
    size_t Bound() const { return 1; }
    void Write(Sink& sink) const { sink.Put(state); }

    /// Whether the output has something new in it.
    void LookAfter(uint64_t result) {
        if (state != Tag::kGiven) return;
        after = Load<T>(target);
        isNew = (always && result == kDone) || std::memcmp(&before, &after, sizeof(T)) != 0;
        if (result == kFaulted && !IsWritable(target, sizeof(T))) state = Tag::kReadOnly;
    }
    void LookAfterCarefully(uint64_t result) { LookAfter(result); }
    size_t BoundAfter() const { return kNumberSize; }

protected:
    bool IsNew() const { return isNew && state == Tag::kGiven; }
    bool IsReadOnly() const { return state == Tag::kReadOnly; }
    /// What stands for an output that was left as it was.
    void WriteOld(Sink& sink) const {
        if (IsReadOnly()) return sink.Put(Tag::kReadOnly);
        sink.Put(Tag::kLeft, state == Tag::kGiven ? Load<UnsignedOf<T>>(&before) : 0);
    }

    T* target;
    T before = {};
    T after = {};

private:
    Tag state = Tag::kNull;
    bool isNew = false;
};

/// A number, whatever its type, as the bits that it has.
template <class T>
class NumberOut : public Output<UnsignedOf<T>, false> {
public:
    explicit NumberOut(T* target)
        : Output<UnsignedOf<T>, false>(reinterpret_cast<UnsignedOf<T>*>(target)) {}
    static constexpr Form kForm = FormOf<T>();
    void WriteAfter(Sink& sink) const {
        if (!this->IsNew()) return this->WriteOld(sink);
        sink.Put(Tag::kNumber, this->after);
    }
};

class ReferenceOut : public Output<uint64_t> {
public:
    explicit ReferenceOut(uint64_t* target) : Output(target) {}
    void WriteAfter(Sink& sink) const {
        if (!IsNew()) return WriteOld(sink);
        if (after == 0) return sink.Put(Tag::kNumber, 0);
        sink.Put(sink.references.Named(after));
    }
    /// What was returned; 0 for nothing.
    uint64_t Returned() const { return IsNew() ? after : 0; }
};

/// An output that leads to more than itself: a view of that is made after the call.
template <class T, class View>
class ViewedOutput : public Output<T> {
public:
    explicit ViewedOutput(T* target) : Output<T>(target) {}
    static constexpr bool kLooksAfter = true;
    size_t BoundAfter() const { return kNumberSize + view.Bound(); }
    void WriteAfter(Sink& sink) const { this->IsNew() ? view.Write(sink) : this->WriteOld(sink); }

protected:
    /// `make` makes the view, if there is something new to be seen.
    template <class Make>
    void ViewAfter(uint64_t result, bool carefully, Make make) {
        Output<T>::LookAfter(result);
        if (!this->IsNew()) return;
        view = make();
        carefully ? view.LookCarefully() : view.Look();
    }

    View view;
};

/// A text that the library returns.
class TextOut : public ViewedOutput<const wchar_t*, TextView> {
public:
    explicit TextOut(const wchar_t** target) : ViewedOutput(target) {}
    void LookAfter(uint64_t result) { See(result, false); }
    void LookAfterCarefully(uint64_t result) { See(result, true); }

private:
    void See(uint64_t result, bool carefully) {
        ViewAfter(result, carefully, [&] { return TextView(after); });
    }
};

/// Bytes that the library returns, of which another output is the count.
template <class T, class Count>
class BytesOut : public ViewedOutput<T, BytesView> {
public:
    BytesOut(T* target, Count* count) : ViewedOutput<T, BytesView>(target), count(count) {}
    void LookAfter(uint64_t result) { See(result, false); }
    void LookAfterCarefully(uint64_t result) { See(result, true); }

private:
    void See(uint64_t result, bool carefully) {
        this->ViewAfter(result, carefully, [&] {
            const bool counted = ReadableBytes(count, sizeof *count) == sizeof *count;
            return BytesView(this->after, counted ? Load<Count>(count) : 0);
        });
    }

    Count* count;
};

/// A text that the library writes into the host's buffer. Of the buffer's content before the call
/// only the first unit is known.
class BufferOut : public ViewedOutput<wchar_t, TextView> {
public:
    explicit BufferOut(wchar_t* target) : ViewedOutput(target) {}
    void LookAfter(uint64_t result) { See(result, false); }
    void LookAfterCarefully(uint64_t result) { See(result, true); }

private:
    void See(uint64_t result, bool carefully) {
        ViewAfter(result, carefully, [&] { return TextView(target); });
    }
};

class VariantOut : public ViewedOutput<QXJSON::JsonVariant, VariantView> {
public:
    explicit VariantOut(QXJSON::JsonVariant* target) : ViewedOutput(target) {}
    static constexpr int kAfter = 2;
    void LookAfter(uint64_t result) { See(result, false); }
    void LookAfterCarefully(uint64_t result) { See(result, true); }
    size_t BoundAfter() const { return 2 * kNumberSize + ViewedOutput::BoundAfter(); }
    void WriteAfter(Sink& sink) const {
        if (IsNew()) return view.Write(sink);
        WriteOld(sink);
        if (IsReadOnly()) return sink.Put(Tag::kReadOnly);
        sink.Put(Tag::kLeft, BitsOf(before.number));
    }

private:
    void See(uint64_t result, bool carefully) {
        ViewAfter(result, carefully, [&] { return VariantView(after); });
    }
};

}  // namespace record
