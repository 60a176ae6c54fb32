// A folder that lives as long as a test.
#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace tarnwick::testsupport {

class TemporaryFolder {
  public:
    TemporaryFolder() {
        std::string made = (std::filesystem::temp_directory_path() / "tarnwick-folder-XXXXXX").string();
        EXPECT_NE(mkdtemp(made.data()), nullptr);
        Folder = made;
    }
    ~TemporaryFolder() {
        std::error_code error;
        std::filesystem::permissions(Folder, std::filesystem::perms::owner_all, error);
        std::filesystem::remove_all(Folder, error);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    std::string Path(const std::string& name) const { return (Folder / name).string(); }
    std::string Write(const std::string& name, const std::string& bytes) const {
        std::ofstream(Path(name), std::ios::binary) << bytes;
        return Path(name);
    }
    std::string Read(const std::string& name) const {
        std::ifstream file(Path(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    /// How many files it holds.
    int Count() const { return static_cast<int>(std::distance(std::filesystem::directory_iterator(Folder), {})); }

  private:
    std::filesystem::path Folder;
};

}  // namespace tarnwick::testsupport
