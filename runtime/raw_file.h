#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace rotavel {

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
    // Makes an empty file for update, emptying one that is there already.
    bool Create(const std::string& path);
    void Close();

    bool IsOpen() const { return descriptor >= 0; }

    // The file's size in bytes, or nothing when it cannot be told.
    std::optional<std::uint64_t> Size() const;

    // Reads up to `size` bytes from the start of the file. Returns how many it read, fewer only at
    // the end of the file; nothing when reading failed.
    std::optional<std::size_t> Read(char* block, std::size_t size) const;

    // Makes `content` the whole content of the file. The space is reserved first, where the file
    // system can do that, so that a full disk gives false and leaves the old content as it was.
    bool Replace(std::string_view content);

  private:
    bool Open(const std::string& path, int access);
    bool Reserve(std::size_t size);
    bool WriteFromStart(std::string_view content);
    bool Truncate(std::uint64_t size);

    int descriptor = -1;
};

}  // namespace rotavel
