#pragma once

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <unistd.h>

// A settings file of 60,000 motorcycles, 18 MB, to measure with. It is in memory where the system
// has a folder for that: a save waits for the disk, and the disk is not what is measured.

namespace bench {

inline constexpr int Groups = 60000;

enum Encoding { Plain, Marked, Accented };

// A file in the shape of the default one: a [Settings] group, then a group of twelve keys for each
// motorcycle, with CR LF line ends.
inline std::string SettingsFileText(Encoding encoding) {
    std::string text = encoding == Marked ? "\xEF\xBB\xBF" : "";
    text += "[Settings]\r\nManufacturer = \r\nModell = \r\nMaxRPM = 8750\r\nSpeedType = km/h\r\n";
    for (int i = 0; i < Groups; ++i) {
        text += "\r\n[Maker " + std::to_string(i % 40);
        text += encoding == Accented ? "\xE9 - Mod\xE8le " : " - Model number ";
        text += std::to_string(i) +
                "]\r\n"
                "RearWheelWidth = 180\r\n"
                "RearWheelPercentHeight = 55\r\n"
                "RearWheelDiameter = 17\r\n"
                "PrimaryRatio = 1.4583\r\n"
                "Gear1Ratio = 2.2353 \r\n"
                "Gear2Ratio = 1.7000 \r\n"
                "Gear3Ratio = 1.3478\r\n"
                "Gear4Ratio = 1.1154\r\n"
                "Gear5Ratio = 0.9355\r\n"
                "Gear6Ratio = 0.8000 \r\n"
                "FinalDriveRatio = 3.6667\r\n"
                "MaxRPM = 8750\r\n";
    }
    return text;
}

// A settings file in a folder of its own, removed with the object.
class SettingsFile {
  public:
    explicit SettingsFile(Encoding encoding) {
        const char* const memory = "/dev/shm";
        std::string folder = access(memory, W_OK) == 0 ? memory : "/tmp";
        folder += "/settings_bench_XXXXXX";
        if (mkdtemp(folder.data()) == nullptr) {
            std::abort();
        }
        path = folder + "/Rotavel.ini";
        std::ofstream(path, std::ios::binary) << SettingsFileText(encoding);
    }
    ~SettingsFile() { std::filesystem::remove_all(std::filesystem::path(path).parent_path()); }

    const std::string& Path() const { return path; }
    std::int64_t Size() const {
        return static_cast<std::int64_t>(std::filesystem::file_size(path));
    }

  private:
    std::string path;
};

}  // namespace bench
