#include "runtime/raw_file.h"

#include <cerrno>
#include <climits>
#include <cstdlib>
#include <ctime>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

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

// Removes the file itself where the path is a link to it.
void RemoveFile(const std::string& path) {
    char resolved[PATH_MAX];
    if (realpath(path.c_str(), resolved) != nullptr) {
        unlink(resolved);
    }
}

}  // namespace

bool RawFile::OpenForUpdate(const std::string& path) {
    return Open(path, O_RDWR);
}

bool RawFile::OpenForReading(const std::string& path) {
    return Open(path, O_RDONLY);
}

bool RawFile::Create(const std::string& path, std::string_view content, const RawFile* model) {
    if (!Open(path, O_RDWR | O_CREAT)) {
        return false;
    }
    Lock();
    const std::optional<std::uint64_t> oldSize = Size();
    if (!oldSize || *oldSize > 0) {
        Close();
        return oldSize ? FailWith(EEXIST) : false;
    }
    if (!Fill(content, model)) {
        RemoveFile(path);
        Close();
        return false;
    }
    Unlock();
    return true;
}

bool RawFile::Fill(std::string_view content, const RawFile* model) {
    struct stat status = {};
    if (model != nullptr && fstat(model->descriptor, &status) == 0) {
        constexpr mode_t permissions = S_IRWXU | S_IRWXG | S_IRWXO;
        // A file of another owner, or without permissions, is better than none.
        [[maybe_unused]] const int owned = fchown(descriptor, status.st_uid, status.st_gid);
        [[maybe_unused]] const int granted = fchmod(descriptor, status.st_mode & permissions);
    }
    return Replace(content, {}) == Replacement::Done;
}

bool RawFile::Open(const std::string& path, int access) {
    Close();
    // Without O_NONBLOCK opening a pipe would wait for its other end.
    const int flags = access | O_CLOEXEC | O_NONBLOCK | O_NOCTTY;
    constexpr mode_t newFileMode = 0666;
    descriptor = Uninterrupted([&] { return open(path.c_str(), flags, newFileMode); });
    struct stat status = {};
    if (!IsOpen() || fstat(descriptor, &status) != 0) {
        FailWith(errno);
        Close();
    } else if (!S_ISREG(status.st_mode)) {
        FailWith(S_ISDIR(status.st_mode) ? EISDIR : EINVAL);
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

bool RawFile::IsAt(const std::string& path) const {
    struct stat own = {};
    struct stat there = {};
    return fstat(descriptor, &own) == 0 && stat(path.c_str(), &there) == 0 &&
           own.st_dev == there.st_dev && own.st_ino == there.st_ino;
}

bool RawFile::IsLinked() const {
    struct stat own = {};
    return fstat(descriptor, &own) == 0 && own.st_nlink > 0;
}

void RawFile::Swap(RawFile& other) {
    std::swap(descriptor, other.descriptor);
    std::swap(error, other.error);
}

bool RawFile::FailWith(int reason) {
    error = reason;
    return false;
}

std::optional<std::uint64_t> RawFile::Size() {
    struct stat status = {};
    if (fstat(descriptor, &status) != 0) {
        FailWith(errno);
        return std::nullopt;
    }
    return static_cast<std::uint64_t>(status.st_size);
}

std::optional<std::size_t> RawFile::Read(char* block, std::size_t size) {
    std::size_t done = 0;
    while (done < size) {
        const ssize_t got = Uninterrupted(
            [&] { return pread(descriptor, block + done, size - done, static_cast<off_t>(done)); });
        if (got < 0) {
            FailWith(errno);
            return std::nullopt;
        }
        if (got == 0) {
            break;
        }
        done += static_cast<std::size_t>(got);
    }
    return done;
}

Replacement RawFile::Replace(std::string_view content, std::string_view old) {
    if (!Reserve(content.size())) {
        return Replacement::Refused;
    }
    // The text is on the disk before its old tail goes. A power cut during the write itself can
    // still leave parts of both.
    if (WriteFromStart(content) && Sync() && CutTo(content.size())) {
        return Replacement::Done;
    }
    const int reason = error;
    bool isRestored = WriteFromStart(old);
    isRestored &= Truncate(old.size());
    isRestored &= Sync();
    error = reason;
    return isRestored ? Replacement::Refused : Replacement::Mixed;
}

bool RawFile::Reserve([[maybe_unused]] std::size_t size) {
#ifdef FALLOC_FL_KEEP_SIZE
    const auto length = static_cast<off_t>(size);
    if (size == 0 ||
        Uninterrupted([&] { return fallocate(descriptor, FALLOC_FL_KEEP_SIZE, 0, length); }) == 0) {
        return true;
    }
    // A file system that cannot reserve is no reason not to write.
    const int reason = errno;
    if (reason == ENOSPC || reason == EDQUOT || reason == EFBIG) {
        if (const std::optional<std::uint64_t> oldSize = Size()) {
            Truncate(*oldSize);  // gives back what was reserved before the space ran out
        }
        return FailWith(reason);
    }
#endif
    return true;
}

bool RawFile::WriteFromStart(std::string_view content) {
    std::size_t done = 0;
    while (done < content.size()) {
        const ssize_t put = Uninterrupted([&] {
            return pwrite(descriptor, content.data() + done, content.size() - done,
                          static_cast<off_t>(done));
        });
        if (put <= 0) {
            return FailWith(put < 0 ? errno : EIO);
        }
        done += static_cast<std::size_t>(put);
    }
    return true;
}

bool RawFile::CutTo(std::uint64_t size) {
    return Size() == size || (Truncate(size) && Sync());
}

bool RawFile::Truncate(std::uint64_t size) {
    return Uninterrupted([&] { return ftruncate(descriptor, static_cast<off_t>(size)); }) == 0 ||
           FailWith(errno);
}

bool RawFile::Sync() {
    // Some file systems have nothing to wait for and say so.
    return Uninterrupted([&] { return fsync(descriptor); }) == 0 || errno == EINVAL ||
           errno == ENOTSUP || FailWith(errno);
}

void RawFile::Lock() {
    constexpr timespec pause = {.tv_sec = 0, .tv_nsec = 20'000'000};
    constexpr int attempts = 50;
    for (int i = 0; i < attempts && flock(descriptor, LOCK_EX | LOCK_NB) != 0; ++i) {
        if (errno != EWOULDBLOCK && errno != EINTR) {
            return;
        }
        nanosleep(&pause, nullptr);
    }
}

void RawFile::Unlock() {
    flock(descriptor, LOCK_UN);
}

}  // namespace rotavel
