#include "display/mainwindow.h"

namespace tarnwick {

MainWindow::MainWindow() { setWindowTitle(QStringLiteral("Tarnwick")); }

}  // namespace tarnwick
