#pragma once

#include <memory>

#include "JsonTypes.h"
#include "common/platform/Compiler.h"

namespace QXJSON {

/// The way from the root of a document to where a walk is: the containers that it has to come back
/// to. The first levels take no memory; what the others take stays for the next walk.
class WalkTrail {
public:
    /// A container, and the members or elements of it that are still to come.
    struct Level {
        const JsonValue* container;
        const void* next;
        const void* end;

        /// All of a container.
        static Level Of(const JsonValue& entered) {
            if (!entered.IsObject()) return {&entered, entered.Begin(), entered.End()};
            const JsonMember* const first = entered.MemberBegin().operator->();
            return {&entered, first, first + entered.MemberCount()};
        }
    };

    WalkTrail() = default;
    WalkTrail(const WalkTrail&) = delete;
    WalkTrail& operator=(const WalkTrail&) = delete;

    void Clear() { top = bottom; }
    bool IsEmpty() const { return top == bottom; }
    void Push(const Level& level) {
        if (top == end) Grow();
        *top++ = level;
    }
    Level Pop() { return *--top; }

private:
    static constexpr size_t kFirst = 32;

    void Grow();

    Level first[kFirst];
    std::unique_ptr<Level[]> grown;
    Level* bottom = first;
    Level* top = first;
    Level* end = first + kFirst;
};

/// A walk over a document that sends its events to a handler: what `Accept` does, at any depth.
/// `Accept` calls itself for each level, and a stack overflow cannot be survived; this walk keeps
/// its way back in memory.
template <class Handler>
class DocumentWalk {
public:
    DocumentWalk(Handler& target, WalkTrail& way) : handler(target), trail(way) {}

    /// Whether the handler took all events.
    bool Run(const JsonValue& value) {
        if (!IsContainer(value)) return SendScalar(value);
        trail.Clear();
        if (!Start(value)) return false;
        for (Level level = Level::Of(value);;) {
            const JsonValue* inner = nullptr;
            const bool taken = level.container->IsObject() ? SendMembers(level, inner)
                                                           : SendElements(level, inner);
            if (!taken) return false;
            if (inner) {
                trail.Push(level);
                if (!Start(*inner)) return false;
                level = Level::Of(*inner);
            } else {
                if (!End(*level.container)) return false;
                if (trail.IsEmpty()) return true;
                level = trail.Pop();
            }
        }
    }

private:
    using Level = WalkTrail::Level;

    bool Start(const JsonValue& container) {
        return container.IsObject() ? handler.StartObject() : handler.StartArray();
    }

    bool End(const JsonValue& container) {
        return container.IsObject() ? handler.EndObject(container.MemberCount())
                                    : handler.EndArray(container.Size());
    }

    /// Goes on in an object, up to the next member whose value is a container, or to the end.
    bool SendMembers(Level& level, const JsonValue*& inner) {
        for (auto* member = static_cast<const JsonMember*>(level.next); member != level.end;
             ++member) {
            if (!SendKey(member->name)) return false;
            if (IsContainer(member->value)) {
                inner = &member->value;
                level.next = member + 1;
                return true;
            }
            if (!SendScalar(member->value)) return false;
        }
        return true;
    }

    /// The same in an array.
    bool SendElements(Level& level, const JsonValue*& inner) {
        for (auto* element = static_cast<const JsonValue*>(level.next); element != level.end;
             ++element) {
            if (IsContainer(*element)) {
                inner = element;
                level.next = element + 1;
                return true;
            }
            if (!SendScalar(*element)) return false;
        }
        return true;
    }

    // A handler that keeps text copies it.

    bool SendKey(const JsonValue& name) {
        return handler.Key(name.GetString(), name.GetStringLength(), true);
    }

    JSON_ALWAYS_INLINE bool SendScalar(const JsonValue& value) {
        switch (value.GetType()) {
            case rapidjson::kNullType:
                return handler.Null();
            case rapidjson::kFalseType:
                return handler.Bool(false);
            case rapidjson::kTrueType:
                return handler.Bool(true);
            case rapidjson::kStringType:
                return handler.String(value.GetString(), value.GetStringLength(), true);
            default:
                return SendNumber(value);
        }
    }

    JSON_ALWAYS_INLINE bool SendNumber(const JsonValue& number) {
        if (number.IsDouble()) return handler.Double(number.GetDouble());
        if (number.IsInt()) return handler.Int(number.GetInt());
        if (number.IsUint()) return handler.Uint(number.GetUint());
        if (number.IsInt64()) return handler.Int64(number.GetInt64());
        return handler.Uint64(number.GetUint64());
    }

    Handler& handler;
    WalkTrail& trail;
};

/// Sends the events of a value to a handler; whether the handler took all of them.
template <class Handler>
bool Walk(const JsonValue& value, Handler& handler, WalkTrail& trail) {
    return DocumentWalk<Handler>(handler, trail).Run(value);
}
template <class Handler>
bool Walk(const JsonValue& value, Handler& handler) {
    WalkTrail trail;
    return Walk(value, handler, trail);
}

/// How many containers stand one inside the other at the deepest place of a value. Afterwards the
/// trail has the memory for a walk over the value.
size_t DepthOf(const JsonValue& value, WalkTrail& trail);

}  // namespace QXJSON
