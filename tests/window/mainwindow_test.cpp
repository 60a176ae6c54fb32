// The main window as a person meets it.
#include "display/mainwindow.h"

#include <gtest/gtest.h>

namespace tarnwick {
namespace {

TEST(MainWindowTest, OpensWithTheProgramsName) {
    MainWindow window;
    window.show();
    EXPECT_TRUE(window.windowTitle().startsWith("Tarnwick"));
}

}  // namespace
}  // namespace tarnwick
