#include "settings/program_location.h"

#include <cstddef>
#include <unistd.h>

#include "text/utf.h"

namespace rotavel {

namespace {

// The executable's path in bytes, empty when the system does not tell.
std::string ExecutablePath() {
    std::string path(256, '\0');
    for (;;) {
        const ssize_t length = readlink("/proc/self/exe", path.data(), path.size());
        if (length < 0) {
            return {};
        }
        const auto used = static_cast<std::size_t>(length);
        if (used < path.size()) {
            path.resize(used);
            return path;
        }
        path.resize(path.size() * 2);  // what fills the buffer may have been cut
    }
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
    std::string path = ExecutablePath();
    if (path.empty()) {
        return;
    }
    path.resize(path.rfind('/') + 1);
    [[maybe_unused]] const int ignored = chdir((path + "..").c_str());
}

std::u16string ProgramFilename() {
    return ToUtf16(ExecutablePath());
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
