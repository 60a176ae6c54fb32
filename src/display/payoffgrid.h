// The grid of payoffs: a line for each, with a number pair and the word between.
#pragma once

#include <QAbstractTableModel>
#include <QPointer>
#include <QTableView>
#include <utility>

#include "config/payofflines.h"

class QLineEdit;

namespace tarnwick {

class PayoffModel final : public QAbstractTableModel {
    Q_OBJECT

  public:
    enum Column { Name, First, Word, Second, Columns };

    PayoffModel(Table& t, QObject* parent) : QAbstractTableModel(parent), T(t) {}

    int rowCount(const QModelIndex& parent) const override;
    int columnCount(const QModelIndex& parent) const override { return parent.isValid() ? 0 : Columns; }
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    /// False when the number was refused; TakeRefusal then tells why.
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;

    static const PayoffLine& LineAt(int row) { return PayoffLines()[static_cast<std::size_t>(row)]; }
    static bool IsHeading(int row) { return LineAt(row).In == PayoffTable::Heading; }
    static bool IsEditable(int row) { return !IsHeading(row) && !LineAt(row).Fixed; }
    static bool IsNumber(int column) { return column == First || column == Second; }

    void SetWord(int row, PayoffWord word);
    /// All payoffs may have changed.
    void Refresh();
    bool HasRefusal() const { return !Refusal.Text.empty(); }
    SettingFault TakeRefusal() { return std::exchange(Refusal, {}); }

  signals:
    void payoffChanged();

  private:
    Table& T;
    SettingFault Refusal;
};

/// Arrows and Tab go from number to number, Enter goes down; t, f and a blank set the word, also while a number is
/// being typed; any other key begins to type.
class PayoffView final : public QTableView {
    Q_OBJECT

  public:
    PayoffView(PayoffModel& model, QWidget* parent);

    /// Takes the number being typed. False when it was refused, which numberRefused has told.
    bool CommitEditor();
    /// Drops the number being typed.
    void AbandonEditor();
    /// Makes the first number of a line current and shows it; of a heading, that of the first line under it.
    void GoTo(int line);
    void GoDown() { setCurrentIndex(moveCursor(MoveDown, Qt::NoModifier)); }
    /// The word that a key sets; false when it sets none.
    static bool WordOfKey(const QKeyEvent& event, PayoffWord& word);

    QPointer<QLineEdit> Editor;

  signals:
    /// The editor has closed, and the old number stands.
    void numberRefused(const QString& title, const QString& text);

  protected:
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyboardSearch(const QString&) override {}
    void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;

  private:
    void SetUpLook();
    /// The nearest line that may be edited, from `row` on by `step`; -1 when there is none.
    static int NextEditable(int row, int step);

    PayoffModel& Model;
};

}  // namespace tarnwick
