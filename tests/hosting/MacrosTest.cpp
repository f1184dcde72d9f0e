// The layer among the macros that headers of Windows make of everyday words.

#define small char
#define hyper long long
#define interface struct
#include "Json_Dll.hpp"
#undef small
#undef hyper
#undef interface

#include "Host.h"

namespace hosts {
namespace {

TEST(HostMacros, AreNoneOfTheLayersNames) {
    const Parser parser = Loaded(L"[0.5]");
    EXPECT_EQ(0.5f, parser.As<float>(L"/1").Get());
}

}  // namespace
}  // namespace hosts
