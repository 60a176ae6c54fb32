// The main window: the table, its menu bar and the status line.
#pragma once

#include <QMainWindow>

namespace tarnwick {

class MainWindow : public QMainWindow {
    Q_OBJECT

  public:
    MainWindow();
};

}  // namespace tarnwick
