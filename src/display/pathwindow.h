// frmPath: where the files in use lie.
#pragma once

#include <QWidget>
#include <functional>
#include <vector>

#include "files/filesinuse.h"

class QTextEdit;

namespace tarnwick {

class PathWindow final : public QWidget {
    Q_OBJECT

  public:
    using Source = std::function<std::vector<PathGroup>()>;
    /// `source` is asked whenever the window is shown or comes to the front.
    PathWindow(Source source, QWidget* parent);

    void Refresh();

  protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    Source Paths;
    QTextEdit* List;
    std::vector<PathGroup> Shown;
};

}  // namespace tarnwick
