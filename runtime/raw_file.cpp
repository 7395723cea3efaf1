#include "runtime/raw_file.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace rotavel {

namespace {

// Runs a system call again for as long as a signal interrupts it.
template <typename Call>
auto Uninterrupted(Call call) {
    auto result = call();
    while (result < 0 && errno == EINTR) {
        result = call();
    }
    return result;
}

}  // namespace

bool RawFile::OpenForUpdate(const std::string& path) {
    return Open(path, O_RDWR);
}

bool RawFile::OpenForReading(const std::string& path) {
    return Open(path, O_RDONLY);
}

bool RawFile::Create(const std::string& path) {
    return Open(path, O_RDWR | O_CREAT | O_TRUNC);
}

bool RawFile::Open(const std::string& path, int access) {
    Close();
    // Without O_NONBLOCK opening a pipe would wait for its other end.
    const int flags = access | O_CLOEXEC | O_NONBLOCK | O_NOCTTY;
    constexpr mode_t newFileMode = 0666;
    descriptor = Uninterrupted([&] { return open(path.c_str(), flags, newFileMode); });
    struct stat status = {};
    if (IsOpen() && (fstat(descriptor, &status) != 0 || !S_ISREG(status.st_mode))) {
        Close();
    }
    return IsOpen();
}

void RawFile::Close() {
    if (IsOpen()) {
        close(descriptor);
        descriptor = -1;
    }
}

std::optional<std::uint64_t> RawFile::Size() const {
    struct stat status = {};
    if (fstat(descriptor, &status) != 0) {
        return std::nullopt;
    }
    return static_cast<std::uint64_t>(status.st_size);
}

std::optional<std::size_t> RawFile::Read(char* block, std::size_t size) const {
    std::size_t done = 0;
    while (done < size) {
        const ssize_t got = Uninterrupted(
            [&] { return pread(descriptor, block + done, size - done, static_cast<off_t>(done)); });
        if (got < 0) {
            return std::nullopt;
        }
        if (got == 0) {
            break;
        }
        done += static_cast<std::size_t>(got);
    }
    return done;
}

bool RawFile::Replace(std::string_view content) {
    return Reserve(content.size()) && WriteFromStart(content) && Truncate(content.size());
}

bool RawFile::Reserve(std::size_t size) {
    if (size == 0) {
        return true;
    }
    const std::optional<std::uint64_t> oldSize = Size();
    if (!oldSize) {
        return false;
    }
    int error = EINTR;
    while (error == EINTR) {
        error = posix_fallocate(descriptor, 0, static_cast<off_t>(size));
    }
    // A file system that cannot reserve is no reason not to write.
    if (error != ENOSPC && error != EDQUOT && error != EFBIG) {
        return true;
    }
    // A reservation that ran out half-way has already lengthened the file.
    Truncate(*oldSize);
    return false;
}

bool RawFile::WriteFromStart(std::string_view content) {
    std::size_t done = 0;
    while (done < content.size()) {
        const ssize_t put = Uninterrupted([&] {
            return pwrite(descriptor, content.data() + done, content.size() - done,
                          static_cast<off_t>(done));
        });
        if (put <= 0) {
            return false;
        }
        done += static_cast<std::size_t>(put);
    }
    return true;
}

bool RawFile::Truncate(std::uint64_t size) {
    return Uninterrupted([&] { return ftruncate(descriptor, static_cast<off_t>(size)); }) == 0;
}

}  // namespace rotavel
