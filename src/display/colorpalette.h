// A palette of colors from which one is picked with the mouse or the keyboard.
#pragma once

#include <QWidget>

namespace tarnwick {

class ColorPalette final : public QWidget {
    Q_OBJECT

  public:
    explicit ColorPalette(QWidget* parent = nullptr);

    /// Marks the field of that color, if there is one.
    void ShowColor(const QColor& color);
    /// The fields, row by row.
    static int FieldCount();
    static QColor FieldColor(int field);
    QRect FieldRect(int field) const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

  signals:
    void picked(const QColor& color);

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

  private:
    void Pick(int field);

    QColor Marked;
    int Cursor = 0;  ///< field that the keyboard has reached
};

}  // namespace tarnwick
