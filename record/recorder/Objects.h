#pragma once

#include <memory>
#include <vector>

#include "Operations.h"
#include "Recorded.h"
#include "calls/Memory.h"

namespace record {

/// Stands between a package and a delegate of the host's.
class RecordedDelegate final : public DelegateCalls<RecordedDelegate> {
public:
    RecordedDelegate(QXJSON::IJsonPackageDelegate* host, uint32_t numberOfThis, uint32_t package,
                     References& references)
        : host(host), callee{Interface::kDelegate, package, numberOfThis, references} {
        number = numberOfThis;
    }
    QXJSON::IJsonPackageDelegate* Host() const { return host; }

    template <class Operation, class... Natives>
    auto Pass(Natives... natives) {
        return Recorded<Operation>(callee, host, natives...);
    }

private:
    QXJSON::IJsonPackageDelegate* host;
    const Callee callee;
};

/// What the host gets in the place of an object of the library. `Calls` has its operations.
template <class Interface, template <class> class Calls>
class RecordedObject final : public Calls<RecordedObject<Interface, Calls>> {
public:
    RecordedObject(Interface* real, record::Interface interface, uint32_t number)
        : real(real), references(number), callee{interface, number, 0, references} {}

    template <class Operation, class... Natives>
    auto Pass(Natives... natives) {
        const auto result = Recorded<Operation>(callee, real, natives...);
        if constexpr (Operation::kEnds) delete this;
        return result;
    }

    /// What the library gets in the place of a delegate: always the same for the same one.
    QXJSON::IJsonPackageDelegate* Passed(QXJSON::IJsonPackageDelegate* host) {
        if (!host) return nullptr;
        const Lock held(lock);
        for (const auto& known : delegates)
            if (known->Host() == host) return known.get();
        const auto number = static_cast<uint32_t>(delegates.size() + 1);
        delegates.push_back(
            std::make_unique<RecordedDelegate>(host, number, callee.object, references));
        return delegates.back().get();
    }

private:
    Interface* const real;
    References references;
    const Callee callee;
    /// None ends before the object does: the library may still be in one that was replaced.
    std::vector<std::unique_ptr<RecordedDelegate>> delegates;
    SRWLOCK lock = SRWLOCK_INIT;  ///< of the delegates
};

}  // namespace record
