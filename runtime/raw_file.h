#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace rotavel {

// What became of a file that was to be replaced: it holds the new content, still the old one, or a
// mixture because the old one could not be put back either.
enum class Replacement { Done, Refused, Mixed };

// One open regular file that is read or replaced in one piece. Not for streams: a folder, socket,
// pipe or device is a file that cannot be opened. Paths are UTF-8; nothing here ever blocks on a
// pipe, throws or shows a message.
class RawFile {
  public:
    RawFile() = default;
    RawFile(const RawFile&) = delete;
    RawFile& operator=(const RawFile&) = delete;
    ~RawFile() { Close(); }

    // Each of these closes what was open before; false leaves the object closed.
    bool OpenForUpdate(const std::string& path);
    bool OpenForReading(const std::string& path);
    // Makes a file that holds `content`, with the owner and permissions of `model` where that is
    // an open file. False when there is a file already that holds anything, and when not all of
    // `content` could be written: no file is left behind then.
    bool Create(const std::string& path, std::string_view content, const RawFile* model = nullptr);
    void Close();

    bool IsOpen() const { return descriptor >= 0; }
    void Swap(RawFile& other);

    // Whether this, and no other that has taken its place, is the file at the path.
    bool IsAt(const std::string& path) const;

    // Whether the file has a name still: it was not deleted, whatever became of its path.
    bool IsLinked() const;

    // Why the last operation that failed did: a value of errno.
    int Error() const { return error; }

    // The file's size in bytes, or nothing when it cannot be told.
    std::optional<std::uint64_t> Size();

    // Reads up to `size` bytes from the start of the file. Returns how many it read, fewer only at
    // the end of the file; nothing when reading failed.
    std::optional<std::size_t> Read(char* block, std::size_t size);

    // Makes `content` the whole content of a file that holds `old`, and returns when it has reached
    // the disk. In place: the file keeps its owner, permissions, links and name, wherever its
    // folder has gone. The space is reserved first, where the file system can do that, so that a
    // full disk is noticed before anything is overwritten; after any other failure `old` is put
    // back.
    Replacement Replace(std::string_view content, std::string_view old);

    // Keeps others that lock the same file waiting until Unlock or Close. Waits for them a second
    // at most and then goes on without the lock: a program that hangs must not stop this one.
    void Lock();
    void Unlock();

  private:
    bool Open(const std::string& path, int access);
    bool Fill(std::string_view content, const RawFile* model);
    bool Reserve(std::size_t size);
    bool WriteFromStart(std::string_view content);
    bool CutTo(std::uint64_t size);
    bool Truncate(std::uint64_t size);
    bool Sync();
    bool FailWith(int reason);

    int descriptor = -1;
    int error = 0;
};

}  // namespace rotavel
