#pragma once

#include "Operations.h"
#include "Player.h"

namespace replay {

/// Makes the arguments of a call from its values.
class Decoder {
public:
    Decoder(Player& player, PlayedObject& object, CallMemory& memory, const Call& call)
        : player(player),
          object(object),
          memory(memory),
          before(call.begin),
          after(call.end && !call.Threw() ? Values(call.end) : Values()) {
        result = after.Next();
    }
    ~Decoder();
    Decoder(const Decoder&) = delete;
    Decoder& operator=(const Decoder&) = delete;

    /// Whether the call cannot be repeated: what it was given is not in the log.
    bool IsImpossible() const { return isImpossible; }
    /// Whether it was given a reference to a value of the host's own, which is not in the log
    /// either; the object is what it was without the call.
    bool IsForeign() const { return isForeign; }

    uint64_t Number() { return Known(before.Next()).number; }
    uint64_t Reference();
    QXJSON::IJsonPackageDelegate* Delegate();
    void* Data() { return memory.CopyOf(Known(before.Next())); }
    void* InputFile();
    void* OutputFile();
    void* Variant(bool isCopy);
    /// The place for an output, of so many bytes and values.
    void* Output(size_t size, int values);

private:
    const Value& Known(const Value& value);
    void* NameOf(const std::wstring& name);

    Player& player;
    PlayedObject& object;
    CallMemory& memory;
    Values before;
    Values after;
    Value result;
    std::vector<std::wstring> files;  ///< to be removed after the call
    bool isImpossible = false;
    bool isForeign = false;
};

// ---- The argument of each kind -----------------------------------------------------------------

template <class T>
struct Kind {};

template <class T>
T Decode(Decoder& decoder, Kind<record::Number<T>>) {
    const uint64_t bits = decoder.Number();
    return record::Load<T>(&bits);
}
inline uint64_t Decode(Decoder& decoder, Kind<record::ReferenceIn>) { return decoder.Reference(); }
inline QXJSON::IJsonPackageDelegate* Decode(Decoder& decoder, Kind<record::DelegateIn>) {
    return decoder.Delegate();
}
template <class View>
void* Decode(Decoder& decoder, Kind<record::Viewed<View>>) {
    return decoder.Data();
}
inline void* Decode(Decoder& decoder, Kind<record::FileIn>) { return decoder.InputFile(); }
inline void* Decode(Decoder& decoder, Kind<record::FileOut>) { return decoder.OutputFile(); }
inline void* Decode(Decoder& decoder, Kind<record::VariantAt>) { return decoder.Variant(false); }
inline QXJSON::JsonVariant Decode(Decoder& decoder, Kind<record::VariantIn>) {
    return *static_cast<QXJSON::JsonVariant*>(decoder.Variant(true));
}
template <class T>
void* Decode(Decoder& decoder, Kind<record::NumberOut<T>>) {
    return decoder.Output(sizeof(T), 1);
}
template <class T, class Count>
void* Decode(Decoder& decoder, Kind<record::BytesOut<T, Count>>) {
    return decoder.Output(sizeof(T), 1);
}
inline void* Decode(Decoder& decoder, Kind<record::ReferenceOut>) {
    return decoder.Output(sizeof(uint64_t), 1);
}
inline void* Decode(Decoder& decoder, Kind<record::TextOut>) {
    return decoder.Output(sizeof(wchar_t*), 1);
}
inline void* Decode(Decoder& decoder, Kind<record::BufferOut>) {
    constexpr size_t kRoom = 1024;
    return decoder.Output(kRoom * sizeof(wchar_t), 1);
}
inline void* Decode(Decoder& decoder, Kind<record::VariantOut>) {
    return decoder.Output(sizeof(QXJSON::JsonVariant), 2);
}

/// What was made as the type of the parameter.
template <class Native, class Made>
Native As(Made made) {
    if constexpr (std::is_pointer_v<Made> && std::is_pointer_v<Native>)
        return static_cast<Native>(
            const_cast<std::remove_const_t<std::remove_pointer_t<Made>>*>(made));
    else
        return made;
}

}  // namespace replay
