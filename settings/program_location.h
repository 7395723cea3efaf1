#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace rotavel {

// Makes the folder that holds the program's `bin` and `Resources` the working directory; it stays
// as it was when that fails. To be called before anything else changes the working directory.
void EnterBundleContents();

// The full path by which the program was started, links kept, where a `../Resources` folder lies
// beside it; else the full path of the executable itself. Empty when the system does not tell. For
// a path that is not UTF-8 to be told, EnterBundleContents must have been called.
std::u16string ProgramFilename();

// A flag of FilePart: leave out the extension. A dot at the name's start or end, or before a
// space, does not begin one.
inline constexpr std::uint32_t StripExtension = 1;

// A path up to and including its last "/" (empty without one), and what follows that "/". A double
// quote before the path is passed over; one behind the name ends it.
std::u16string_view DirectoryPart(std::u16string_view path);
std::u16string_view FilePart(std::u16string_view path, std::uint32_t flags);

}  // namespace rotavel
