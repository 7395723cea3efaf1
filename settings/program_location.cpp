#include "settings/program_location.h"

#include <bit>
#include <cstddef>
#include <filesystem>
#include <string>
#include <sys/auxv.h>
#include <system_error>

#include "text/utf.h"

namespace rotavel {

namespace {

namespace fs = std::filesystem;

// The path that the kernel was given to start the program, whatever name the program was told to
// go by. Links in it are kept; it is empty when it cannot be told.
fs::path StartedPath() {
    const auto* given = std::bit_cast<const char*>(getauxval(AT_EXECFN));
    std::error_code failed;
    return given != nullptr ? fs::absolute(given, failed) : fs::path();
}

// A package puts the program where only root may write. Each user starts it by a link in a folder
// of their own then, and there their settings are; any other link leads to where the program lies.
fs::path FindProgram() {
    std::error_code failed;
    fs::path started = StartedPath();
    if (fs::is_directory(started.parent_path() / "../Resources", failed)) {
        return started;
    }
    return fs::read_symlink("/proc/self/exe", failed);
}

// Found once: a relative path means nothing any more when the working directory has changed.
const fs::path& ProgramPath() {
    static const fs::path path = FindProgram();
    return path;
}

std::u16string_view WithoutLeadingQuote(std::u16string_view path) {
    return path.substr(path.starts_with(u'"') ? 1 : 0);
}

// The length of the path's directory part.
std::size_t DirectoryLength(std::u16string_view path) {
    return path.rfind(u'/') + 1;  // npos + 1 is 0
}

std::u16string_view WithoutExtension(std::u16string_view name) {
    const std::size_t mark = name.find_last_of(u". ");
    const bool beginsExtension = mark != std::u16string_view::npos && mark > 0 &&
                                 mark + 1 < name.size() && name[mark] == u'.';
    return beginsExtension ? name.substr(0, mark) : name;
}

}  // namespace

void EnterBundleContents() {
    const fs::path& program = ProgramPath();
    if (program.empty()) {
        return;
    }
    std::error_code ignored;
    fs::current_path(program.parent_path() / "..", ignored);
}

std::u16string ProgramFilename() {
    const fs::path& program = ProgramPath();
    std::u16string text = ToUtf16(program.native());
    if (ToUtf8(text) == program.native()) {
        return text;
    }
    // A folder whose name is not UTF-8 can still be told by way of the working directory.
    const fs::path inside = program.parent_path().filename() / program.filename();
    const fs::path reachable = "/proc/self/cwd" / inside;
    std::error_code failed;
    return fs::equivalent(reachable, program, failed) ? ToUtf16(reachable.native()) : text;
}

std::u16string_view DirectoryPart(std::u16string_view path) {
    path = WithoutLeadingQuote(path);
    return path.substr(0, DirectoryLength(path));
}

std::u16string_view FilePart(std::u16string_view path, std::uint32_t flags) {
    path = WithoutLeadingQuote(path);
    std::u16string_view name = path.substr(DirectoryLength(path));
    name = name.substr(0, name.find(u'"'));
    return (flags & StripExtension) != 0 ? WithoutExtension(name) : name;
}

}  // namespace rotavel
