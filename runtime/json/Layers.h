#pragma once

#include <stdint.h>

#include <new>

#include "Guard.h"

// The two layers around every implementation. What is common to the three families is here: who
// owns whom, and how an operation is passed on. A family's forwarders (ParserOperations.h and
// its siblings) derive from one of these and pass each operation to Forward or ForwardUnguarded;
// the classes of the family add only what is special about them.

namespace QXJSON {

/// The object behind a pointer that must not be null; a null one faults, as the contract has it for
/// the operations of an object whose parts could not be allocated.
template <class T>
T& Required(T* object) {
    if (!object) RaiseAccessViolation();
    return *object;
}

/// Ends the life of an owned part through its own Release, and forgets it.
template <class T>
void ReleasePart(T*& part) {
    if (part) part->Release();
    part = nullptr;
}

/// What the runtime holds: owns an adapter and guards every operation that it passes to it.
template <class Interface, class Adapter>
class FacadeLayer : public Interface {
public:
    FacadeLayer(const FacadeLayer&) = delete;
    FacadeLayer& operator=(const FacadeLayer&) = delete;

protected:
    FacadeLayer() : adapter(new (std::nothrow) Adapter) {}
    ~FacadeLayer() = default;

    template <class Operation, class... Arguments>
    int Forward(Operation operation, Arguments... arguments) {
        return Guarded(
            [operation](FacadeLayer* layer, Arguments... rest) {
                return operation(Required(layer->adapter), rest...);
            },
            this, arguments...);
    }

    template <class Operation, class... Arguments>
    auto ForwardUnguarded(Operation operation, Arguments... arguments) {
        return operation(Required(adapter), arguments...);
    }

    Adapter* adapter;
};

/// Owns an implementation, and replaces it by a new one where an operation starts again.
template <class Interface, class Implementation>
class AdapterLayer : public Interface {
public:
    AdapterLayer(const AdapterLayer&) = delete;
    AdapterLayer& operator=(const AdapterLayer&) = delete;

protected:
    AdapterLayer() { implementation = NewImplementation(); }
    ~AdapterLayer() = default;

    template <class Operation, class... Arguments>
    auto Forward(Operation operation, Arguments... arguments) {
        return operation(Required(implementation), arguments...);
    }

    template <class Operation, class... Arguments>
    auto ForwardUnguarded(Operation operation, Arguments... arguments) {
        return Forward(operation, arguments...);
    }

    /// A new implementation of the adapter's kind; null without memory, or for an unknown kind.
    Implementation* NewImplementation() const {
        return implementationKind == 0 ? new (std::nothrow) Implementation : nullptr;
    }

    /// Has a new implementation in place of one that was used.
    void Renew() {
        if (!implementation || !implementation->IsNew()) Replace(NewImplementation());
    }

    /// Puts a new implementation, or null, in the place of the old one.
    void Replace(Implementation* renewed) {
        ReleasePart(implementation);
        implementation = renewed;
    }

    Implementation* implementation = nullptr;
    uint32_t implementationKind = 0;  // 0: on RapidJSON, the only kind there is
};

}  // namespace QXJSON
