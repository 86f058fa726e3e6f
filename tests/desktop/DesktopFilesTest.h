// Data directories of a test's own, with the desktop entries that it needs.
#pragma once

#include "tests/support/TemporaryDirectory.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace desktop {

class DesktopFilesTest : public testing::Test {
protected:
    static std::string entry(const std::string& name, const std::string& more = "") {
        return "[Desktop Entry]\nType=Application\nName=" + name + "\nExec=true\n" + more;
    }
    /// Writes an entry or anything else below the data directory `directory`.
    void write(const std::string& directory, const std::string& file, const std::string& content) {
        const auto path = applications(directory) / file;
        std::filesystem::create_directories(path.parent_path());
        std::ofstream(path, std::ios::binary) << content;
    }
    std::filesystem::path applications(const std::string& directory) const {
        return directory_.path() / directory / "applications";
    }
    std::vector<std::filesystem::path> directories() const {
        return {directory_.path() / "own", directory_.path() / "machine"};
    }

private:
    tests::TemporaryDirectory directory_;
};

} // namespace desktop
