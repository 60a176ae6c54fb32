// A small picture of a table in play, in the colors of the game.
#pragma once

#include <QPixmap>
#include <QWidget>
#include <memory>

namespace tarnwick {

struct SilentScreen;
struct Table;

class FeltPreview final : public QWidget {
    Q_OBJECT

  public:
    explicit FeltPreview(const Table& t, QWidget* parent = nullptr);
    ~FeltPreview() override;

    /// The colors or pictures have changed.
    void Refresh();

    QSize sizeHint() const override { return {400, 190}; }
    QSize minimumSizeHint() const override { return {300, 140}; }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    void TakeLook();

    const Table& T;
    std::unique_ptr<SilentScreen> Front;
    std::unique_ptr<Table> Sample;  ///< made when it is first looked at
    QPixmap Picture;
    QSize PictureSize;
};

}  // namespace tarnwick
