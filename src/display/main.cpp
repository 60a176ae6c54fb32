// The desktop: the drawn table with its windows.
#include <QApplication>
#include <QStyleFactory>

#include "display/mainwindow.h"

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QApplication::setApplicationName("Tarnwick");
    QApplication::setApplicationVersion(TARNWICK_VERSION);
    QApplication::setStyle(QStyleFactory::create("Fusion"));
    tarnwick::MainWindow window;
    window.show();
    return QApplication::exec();
}
