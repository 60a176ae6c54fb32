// Runs the tests the same way whoever starts them, from whatever folder: they stand at the root of the sources (golden
// files, examples), and $TARNWICK_HOME and $TMPDIR are an empty folder of their own, far from the user's games.

#include <gmock/gmock.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <system_error>

int main(int argc, char** argv) {
    testing::InitGoogleMock(&argc, argv);
    if (GTEST_FLAG_GET(list_tests)) return RUN_ALL_TESTS();

    std::error_code error;
    std::filesystem::current_path(SOURCE_FOLDER, error);
    std::string home = (std::filesystem::temp_directory_path() / "tarnwick-test-XXXXXX").string();
    if (error || mkdtemp(home.data()) == nullptr) {
        std::fprintf(stderr, "The tests need %s and a temporary folder.\n", SOURCE_FOLDER);
        return 1;
    }
    setenv("TARNWICK_HOME", home.c_str(), 1);
    setenv("TMPDIR", home.c_str(), 1);  // what tests leave behind goes with it
    setenv("TARNWICK_LAB", BINARY_FOLDER "/bin/tarnwick-lab", 0);
    setenv("LC_ALL", "C.UTF-8", 1);

    const int status = RUN_ALL_TESTS();
    std::filesystem::remove_all(home, error);
    return status;
}
