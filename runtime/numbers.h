#pragma once

#include <cstdint>

namespace rotavel {

// The number that asks for an automatic one at creation and names all objects at destruction.
inline constexpr std::int64_t AnyNumber = -1;

// What an operation that creates a numbered object returns: the number it was given if AnyNumber
// asked for an automatic one, else the address of what was made, which is not 0.
inline std::int64_t CreationResult(std::int64_t asked, std::int64_t given, const void* made) {
    return asked == AnyNumber ? given
                              : static_cast<std::int64_t>(reinterpret_cast<std::uintptr_t>(made));
}

}  // namespace rotavel
