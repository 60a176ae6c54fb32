// The desktop: the drawn table with its windows.
#include <QApplication>
#include <QStyleFactory>
#include <QTimer>

#include "display/game.h"
#include "display/mainwindow.h"
#include "display/tablepicture.h"
#include "table/rolldice.h"

int main(int argc, char** argv) {
    if (const auto ended = tarnwick::RunPictureCommand(argc, argv)) return *ended;
    QApplication application(argc, argv);
    QApplication::setApplicationName("Tarnwick");
    QApplication::setApplicationVersion(TARNWICK_VERSION);
    QApplication::setStyle(QStyleFactory::create("Fusion"));
    const QStringList arguments = QApplication::arguments();
    tarnwick::MainWindow window(tarnwick::DesktopUserFolder(),
                                arguments.size() > 1 ? arguments.at(1).toStdString() : std::string());
    window.show();
    // Sound devices take their time to be found: the table is there before.
    QTimer::singleShot(0, &window, [&window] { tarnwick::PlayComeOutCall(window.CurrentGame().T()); });
    return QApplication::exec();
}
