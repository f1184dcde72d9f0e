#pragma once

#include <type_traits>

namespace record {

/// How the bits of a number are to be read.
enum class Form { kSigned, kUnsigned, kDouble, kFloat };

template <class T>
constexpr Form FormOf() {
    if constexpr (std::is_same_v<T, double>) return Form::kDouble;
    if constexpr (std::is_same_v<T, float>) return Form::kFloat;
    return std::is_signed_v<T> ? Form::kSigned : Form::kUnsigned;
}

}  // namespace record
