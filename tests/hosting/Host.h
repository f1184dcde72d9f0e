#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "Json_Dll.hpp"

// What the tests of the C++ layer share. They are hosts: they include the layer and nothing else of
// the library, and use the built DLL.

namespace hosts {

// What any host would write at the top of its file.
using namespace QXJSON::hosting;

/// The library, loaded from the test program's folder.
inline const Library& TheLibrary() {
    static const Library library;
    return library;
}

inline Parser NewParser() { return TheLibrary().NewParser().Get(); }
inline Generator NewGenerator() { return TheLibrary().NewGenerator().Get(); }
inline Package NewPackage() { return TheLibrary().NewPackage().Get(); }

/// A parser with a document.
inline Parser Loaded(const TextArgument& json) {
    Parser parser = NewParser();
    parser.Load(json).Get();
    return parser;
}

/// What a piece of memory holds, to be compared and printed.
inline std::string Text(const Bytes& bytes) { return {bytes.begin(), bytes.end()}; }

/// The bytes of a text.
inline Bytes BytesOf(std::string_view text) {
    return {reinterpret_cast<const uint8_t*>(text.data()), text.size()};
}

}  // namespace hosts
