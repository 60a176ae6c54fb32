// The mouse pointer goes to where the next click is due.
#pragma once

#include <QObject>
#include <QPoint>
#include <optional>

class QDialog;

namespace tarnwick {

/// While `dialog` is open, puts the pointer on its default button; afterwards back to where it was, unless the user has
/// taken it out of the dialog. Does nothing when not `on`, without such a button, and while another program is in use.
class PointerSnap final : public QObject {
  public:
    PointerSnap(QDialog& dialog, bool on);
    ~PointerSnap() override;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void Snap();

    QDialog& Dialog;
    std::optional<QPoint> Before;
};

}  // namespace tarnwick
