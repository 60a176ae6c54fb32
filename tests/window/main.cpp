// Runs the window tests on the offscreen platform, from the root of the sources, with an empty data folder.
#include <gmock/gmock.h>

#include <QApplication>
#include <QStandardPaths>
#include <QStyleFactory>
#include <QTemporaryDir>
#include <filesystem>

int main(int argc, char** argv) {
    testing::InitGoogleMock(&argc, argv);
    if (GTEST_FLAG_GET(list_tests)) return RUN_ALL_TESTS();
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    const QTemporaryDir home;
    qputenv("TARNWICK_HOME", home.path().toUtf8());
    std::error_code error;
    std::filesystem::current_path(SOURCE_FOLDER, error);
    QStandardPaths::setTestModeEnabled(true);
    const QApplication application(argc, argv);
    QApplication::setStyle(QStyleFactory::create("Fusion"));
    return error || !home.isValid() ? 1 : RUN_ALL_TESTS();
}
