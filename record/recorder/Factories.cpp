#include <atomic>
#include <new>

#include "Library.h"
#include "Objects.h"

namespace record {
namespace {

std::atomic<uint32_t> g_objects{0};

/// Makes an object of the library and records that; where nothing is recorded, the host gets the
/// object itself.
template <class Interface, template <class> class Calls>
Interface* Create(record::Interface kind, const char* factory) {
    auto* const create = TheLibrary().Factory<Interface>(factory);
    if (!create) return nullptr;
    if (!IsRecording()) return create();
    References none(0);
    const Callee called{kind, 0, 0, none};
    Write(called, Event::kCall, kFactory, 0, [](Sink&) {});
    Interface* const real = create();
    const uint32_t number = real ? ++g_objects : 0;
    using Object = RecordedObject<Interface, Calls>;
    auto* const object = real ? new (std::nothrow) Object(real, kind, number) : nullptr;
    if (real && !object) real->Release();
    Write(called, Event::kReturn, kFactory, kNumberSize,
          [&](Sink& sink) { sink.Put(Tag::kNumber, object ? number : 0); });
    return object;
}

}  // namespace
}  // namespace record

using record::Create;

QXJSON::IJsonParser* CreateJsonParser() {
    return Create<QXJSON::IJsonParser, record::ParserCalls>(record::Interface::kParser, __func__);
}

QXJSON::IJsonGenerator* CreateJsonGenerator() {
    return Create<QXJSON::IJsonGenerator, record::GeneratorCalls>(record::Interface::kGenerator,
                                                                  __func__);
}

QXJSON::IJsonPackage* CreateJsonPackageInterface() {
    return Create<QXJSON::IJsonPackage, record::PackageCalls>(record::Interface::kPackage,
                                                              __func__);
}
