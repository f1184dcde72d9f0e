// The runtime's delegate as the package calls it: by the places of its operations in a table.
// (Those of the package itself are compared with tests/abi/slots.)

#include <gtest/gtest.h>

#include "PackageDelegate.h"
#include "PackageState.h"

namespace {

size_t g_called = 0;

template <size_t kSlot>
int NoteCall(void*, void*) {
    g_called = kSlot;
    return -100 - static_cast<int>(kSlot);
}

/// The functions may look at fewer parameters than they are given.
TEST(PackageSlots, ADelegateIsCalledByPlaces) {
    using Function = int (*)(void*, void*);
    static const Function functions[] = {NoteCall<0>, NoteCall<1>, NoteCall<2>, NoteCall<3>,
                                         NoteCall<4>, NoteCall<5>, NoteCall<6>};
    const Function* object = functions;
    const support::Package package = support::LoadedPackage(L"{\"k\":[0]}");
    EXPECT_EQ(1, package->SetDelegate(reinterpret_cast<QXJSON::IJsonPackageDelegate*>(&object)));
    const auto& slots = support::ExportSlots();
    for (size_t i = 0; i < slots.size(); ++i) {
        EXPECT_EQ(-100 - static_cast<int>(i), slots[i].Set(*package, L"k"));
        EXPECT_EQ(i, g_called);
    }
    EXPECT_EQ(-106, support::ImportFrom(*package, L"k"));
    EXPECT_EQ(6u, g_called);
}

}  // namespace
