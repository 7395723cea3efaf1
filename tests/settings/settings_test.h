#pragma once

#include <gtest/gtest.h>

#include "settings/settings_store.h"
#include "tests/support/temporary_folder.h"
#include "text/utf.h"

namespace rotavel::tests {

inline const std::string Mark = "\xEF\xBB\xBF";

// The store, and the file that it keeps.
class SettingsTest : public testing::Test {
  protected:
    ~SettingsTest() override { SettingsClose(); }

    // Opens the store on a new file.
    void Start(const std::string& content, std::uint32_t flags = GroupSpacing) {
        SettingsClose();
        std::filesystem::remove_all(file);
        WriteFile(file, content);
        ASSERT_TRUE(SettingsOpen(path, flags));
    }
    // What the file holds once the store is closed.
    std::string Closed() {
        SettingsClose();
        return ReadFile(file);
    }

    const TemporaryFolder folder;
    const std::string file = folder.File("Rotavel.ini");
    const std::u16string path = ToUtf16(file);
};

}  // namespace rotavel::tests
