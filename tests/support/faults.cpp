#include "tests/support/faults.h"

#include <cerrno>
#include <cstdlib>
#include <new>
#include <optional>
#include <sys/types.h>

// The linker leads the calls of the tested code to the functions named __wrap_, and what these call
// __real_ to the system.

namespace rotavel::tests {

namespace {

std::optional<Faults> current;
int callCount = 0;
int strikeCount = 0;
std::string trace;

// Whether this call has to fail.
bool Strikes(char call) {
    const bool strikes = current && current->Call == call && ++callCount >= current->First &&
                         callCount <= current->Last;
    strikeCount += strikes ? 1 : 0;
    if (strikes) {
        // Where all fail, the first failure is the reason and the others must not hide it.
        const bool isAfterFailure = strikeCount > 1 && current->Error != Faults::Half;
        errno = isAfterFailure && current->Last == Faults::Always ? EBADF : current->Error;
    }
    if (current && call != Faults::Memory && !(strikes && errno == EINTR)) {
        trace += call;
    }
    return strikes;
}

template <typename Real>
ssize_t Transfer(char call, std::size_t size, Real real) {
    if (!Strikes(call)) {
        return real(size);
    }
    return errno == Faults::Half ? real((size + 1) / 2) : -1;
}

}  // namespace

bool Faults::During(const std::function<bool()>& action) const {
    callCount = strikeCount = 0;
    trace.clear();
    trace.reserve(100);  // it takes no memory of its own meanwhile
    current = *this;
    const bool result = action();
    current.reset();
    return result;
}

bool Faults::HaveStruck() {
    return strikeCount > 0;
}

std::string Faults::Trace() {
    return trace;
}

}  // namespace rotavel::tests

using rotavel::tests::Strikes;
using rotavel::tests::Transfer;

extern "C" {

ssize_t __real_pread(int file, void* block, std::size_t size, off_t offset);
ssize_t __wrap_pread(int file, void* block, std::size_t size, off_t offset) {
    return Transfer('R', size, [&](std::size_t n) { return __real_pread(file, block, n, offset); });
}

ssize_t __real_pwrite(int file, const void* block, std::size_t size, off_t offset);
ssize_t __wrap_pwrite(int file, const void* block, std::size_t size, off_t offset) {
    const ssize_t put =
        Transfer('W', size, [&](std::size_t n) { return __real_pwrite(file, block, n, offset); });
    if (put < 0 && errno != EINTR) {
        // A write that fails may have written a part all the same.
        const int error = errno;
        __real_pwrite(file, block, size / 2, offset);
        errno = error;
    }
    return put;
}

int __real_fallocate(int file, int mode, off_t offset, off_t size);
int __wrap_fallocate(int file, int mode, off_t offset, off_t size) {
    return Strikes('F') ? -1 : __real_fallocate(file, mode, offset, size);
}

// No test waits for the disk.
int __wrap_fsync(int /*file*/) {
    return Strikes('S') ? -1 : 0;
}

int __real_ftruncate(int file, off_t size);
int __wrap_ftruncate(int file, off_t size) {
    return Strikes('T') ? -1 : __real_ftruncate(file, size);
}

void* __real_malloc(std::size_t size);
void* __wrap_malloc(std::size_t size) {
    return Strikes(rotavel::tests::Faults::Memory) ? nullptr : __real_malloc(size);
}
}

void* operator new(std::size_t size) {
    void* const block = malloc(size);
    if (block == nullptr) {
        throw std::bad_alloc();
    }
    return block;
}

void operator delete(void* block) noexcept {
    free(block);
}

void operator delete(void* block, std::size_t) noexcept {
    free(block);
}
