#include "display/payoffgrid.h"

#include <QGuiApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <algorithm>

#include "config/payoffs.h"
#include "display/words.h"
#include "table/crapcnst.h"
#include "table/format.h"

namespace tarnwick {

namespace {

QString NumberText(currency number) {
    return Words(FormatPattern(number, IsMultipleOf(number, Dollars(1)) ? "#,0" : "#,0.00##"));
}

/// Numbers are typed into a line edit that keeps what was typed while the word beside it changes.
class NumberDelegate final : public QStyledItemDelegate {
  public:
    NumberDelegate(PayoffModel& model, PayoffView& view) : QStyledItemDelegate(&view), Model(model), View(view) {}

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& /*option*/,
                          const QModelIndex& index) const override {
        auto* editor = new QLineEdit(parent);
        editor->setObjectName(QStringLiteral("txtPayoff"));
        editor->setFrame(false);
        QPalette typing = editor->palette();
        typing.setColor(QPalette::Base, typing.color(QPalette::ToolTipBase));
        typing.setColor(QPalette::Text, typing.color(QPalette::ToolTipText));
        editor->setPalette(typing);
        editor->setMaxLength(24);
        editor->setAlignment(Qt::Alignment(index.data(Qt::TextAlignmentRole).toInt()));
        View.Editor = editor;
        return editor;
    }
    void setEditorData(QWidget* editor, const QModelIndex& index) const override {
        auto* box = qobject_cast<QLineEdit*>(editor);
        if (box->isModified()) return;
        box->setText(index.data(Qt::EditRole).toString());
        box->selectAll();
    }
    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override {
        auto* box = qobject_cast<QLineEdit*>(editor);
        if (box->isModified()) model->setData(index, box->text(), Qt::EditRole);
    }

  protected:
    bool eventFilter(QObject* object, QEvent* event) override {
        if (event->type() == QEvent::KeyPress && object == View.Editor) {
            auto* key = static_cast<QKeyEvent*>(event);
            PayoffWord word{};
            if (PayoffView::WordOfKey(*key, word)) {
                Model.SetWord(View.currentIndex().row(), word);
                return true;
            }
            if (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter) {
                if (View.CommitEditor()) View.GoDown();
                return true;
            }
        }
        return QStyledItemDelegate::eventFilter(object, event);
    }

  private:
    PayoffModel& Model;
    PayoffView& View;
};

}  // namespace

// --- the model ---

int PayoffModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(PayoffLines().size());
}

QVariant PayoffModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal) return {};
    if (role == Qt::TextAlignmentRole) {
        return QVariant((section == First ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
    }
    if (role != Qt::DisplayRole) return {};
    switch (section) {
        case Name:
            return tr("Bet");
        case First:
            return tr("Paid");
        case Second:
            return tr("Wagered");
        default:
            return QString();
    }
}

QVariant PayoffModel::data(const QModelIndex& index, int role) const {
    const PayoffLine& line = LineAt(index.row());
    const bool heading = line.In == PayoffTable::Heading;
    if (role == Qt::TextAlignmentRole) {
        const auto across = index.column() == First  ? Qt::AlignRight
                            : index.column() == Word ? Qt::AlignHCenter
                                                     : Qt::AlignLeft;
        return QVariant(across | Qt::AlignVCenter);
    }
    if (role == Qt::FontRole && heading) {
        QFont bold;
        bold.setBold(true);
        return bold;
    }
    if (role == Qt::BackgroundRole && heading) return QGuiApplication::palette().color(QPalette::Window).darker(106);
    if (role == Qt::ToolTipRole && line.Fixed) return tr("Without a point made the Fire bet always loses.");
    if (role != Qt::DisplayRole && role != Qt::EditRole) return {};
    if (index.column() == Name) return Words(line.Label);
    if (heading) return {};
    const PayoffEntry& payoff = EntryOf(T, line);
    if (index.column() == Word) return IsZero(payoff.ToForm) ? QStringLiteral("for") : QStringLiteral("to");
    const currency number = index.column() == First ? ShownPays(payoff) : payoff.For;
    return role == Qt::EditRole ? Words(PlainAmount(number)) : NumberText(number);
}

Qt::ItemFlags PayoffModel::flags(const QModelIndex& index) const {
    if (IsHeading(index.row())) return Qt::ItemIsEnabled;
    if (LineAt(index.row()).Fixed) return Qt::NoItemFlags;
    return IsNumber(index.column()) ? Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsEditable : Qt::ItemIsEnabled;
}

bool PayoffModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (role != Qt::EditRole || !IsEditable(index.row()) || !IsNumber(index.column())) return false;
    const PayoffNumber which = index.column() == First ? PayoffNumber::First : PayoffNumber::Second;
    const PayoffEntry before = EntryOf(T, LineAt(index.row()));
    Refusal = SetPayoffNumber(T, LineAt(index.row()), which, Utf8(value.toString()));
    if (HasRefusal()) return false;
    if (!(EntryOf(T, LineAt(index.row())) == before)) {
        emit dataChanged(index.siblingAtColumn(First), index.siblingAtColumn(Second));
        emit payoffChanged();
    }
    return true;
}

void PayoffModel::SetWord(int row, PayoffWord word) {
    if (!IsEditable(row)) return;
    const PayoffEntry before = EntryOf(T, LineAt(row));
    SetPayoffWord(T, LineAt(row), word);
    if (EntryOf(T, LineAt(row)) == before) return;
    emit dataChanged(index(row, First), index(row, Second));
    emit payoffChanged();
}

void PayoffModel::Refresh() { emit dataChanged(index(0, Name), index(rowCount({}) - 1, Second)); }

// --- the view ---

PayoffView::PayoffView(PayoffModel& model, QWidget* parent) : QTableView(parent), Model(model) {
    setObjectName(QStringLiteral("grdPayoffs"));
    setAccessibleName(tr("Payoffs"));
    setModel(&model);
    setItemDelegate(new NumberDelegate(model, *this));
    setEditTriggers(DoubleClicked | EditKeyPressed | AnyKeyPressed);
    setSelectionMode(SingleSelection);
    setTabKeyNavigation(true);
    SetUpLook();
    setCurrentIndex(model.index(NextEditable(0, 1), PayoffModel::First));
}

void PayoffView::SetUpLook() {
    setAlternatingRowColors(true);
    setShowGrid(false);
    setWordWrap(false);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    const QFontMetrics metrics = fontMetrics();
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(metrics.height() + 6);
    QHeaderView& columns = *horizontalHeader();
    columns.setSectionResizeMode(QHeaderView::Fixed);
    columns.setHighlightSections(false);
    int names = 0;
    for (int row = 0; row < Model.rowCount({}); ++row) {
        names = std::max(names, metrics.horizontalAdvance(Words(PayoffModel::LineAt(row).Label)));
        if (PayoffModel::IsHeading(row)) setSpan(row, 0, 1, PayoffModel::Columns);
    }
    const int number = metrics.horizontalAdvance(QStringLiteral("-9,999,999.9999")) + 16;
    const int widths[] = {names + 40, number, metrics.horizontalAdvance(QStringLiteral("for")) + 20, number};
    int width = 0;
    for (int column = 0; column < PayoffModel::Columns; ++column) {
        columns.resizeSection(column, widths[column]);
        width += widths[column];
    }
    columns.setSectionResizeMode(PayoffModel::Name, QHeaderView::Stretch);
    setFixedWidth(width + verticalScrollBar()->sizeHint().width() + 2 * frameWidth());
}

int PayoffView::NextEditable(int row, int step) {
    const int count = static_cast<int>(PayoffLines().size());
    while (0 <= row && row < count && !PayoffModel::IsEditable(row)) row += step;
    return 0 <= row && row < count ? row : -1;
}

bool PayoffView::WordOfKey(const QKeyEvent& event, PayoffWord& word) {
    if ((event.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier)) != 0) return false;
    switch (event.key()) {
        case Qt::Key_T:
            word = PayoffWord::To;
            return true;
        case Qt::Key_F:
            word = PayoffWord::For;
            return true;
        case Qt::Key_Space:
            word = PayoffWord::Other;
            return true;
        default:
            return false;
    }
}

QModelIndex PayoffView::moveCursor(CursorAction action, Qt::KeyboardModifiers /*modifiers*/) {
    const QModelIndex current = currentIndex();
    const int last = Model.rowCount({}) - 1;
    const int page = std::max(1, viewport()->height() / rowHeight(0) - 1);
    int row = std::max(0, current.row());
    int column = current.column() == PayoffModel::Second ? PayoffModel::Second : PayoffModel::First;
    int step = 1;
    const auto leave = [&](int by) { row += step = by; };
    switch (action) {
        case MoveUp:
            leave(-1);
            break;
        case MoveDown:
            leave(1);
            break;
        case MoveLeft:
            column = PayoffModel::First;
            break;
        case MoveRight:
            column = PayoffModel::Second;
            break;
        case MoveNext:
            if (column == PayoffModel::Second) leave(1);
            column = PayoffModel::First + PayoffModel::Second - column;
            break;
        case MovePrevious:
            if (column == PayoffModel::First) leave(-1);
            column = PayoffModel::First + PayoffModel::Second - column;
            break;
        case MoveHome:
            row = 0;
            break;
        case MoveEnd:
            row = last;
            step = -1;
            break;
        case MovePageUp:
            row = std::max(0, row - page);
            break;
        case MovePageDown:
            row = std::min(last, row + page);
            step = row == last ? -1 : 1;
            break;
    }
    const int wanted = NextEditable(row, step);
    // Tab leaves the grid at its ends.
    if (wanted < 0) return action == MoveNext || action == MovePrevious ? QModelIndex() : current;
    return Model.index(wanted, column);
}

void PayoffView::keyPressEvent(QKeyEvent* event) {
    PayoffWord word{};
    if (WordOfKey(*event, word)) {
        Model.SetWord(currentIndex().row(), word);
    } else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        GoDown();
    } else {
        QTableView::keyPressEvent(event);
    }
}

void PayoffView::mousePressEvent(QMouseEvent* event) {
    const QModelIndex at = indexAt(event->position().toPoint());
    if (at.isValid() && PayoffModel::IsNumber(at.column()) && PayoffModel::IsEditable(at.row())) {
        QTableView::mousePressEvent(event);
    } else if (at.isValid() && PayoffModel::IsEditable(at.row())) {
        setCurrentIndex(at.siblingAtColumn(PayoffModel::First));
    }
}

void PayoffView::mouseDoubleClickEvent(QMouseEvent* event) {
    const QModelIndex at = indexAt(event->position().toPoint());
    if (at.isValid() && at.column() == PayoffModel::Word) {
        Model.SetWord(at.row(), PayoffWord::Other);
    } else {
        QTableView::mouseDoubleClickEvent(event);
    }
}

bool PayoffView::CommitEditor() {
    if (Editor == nullptr) return true;
    QLineEdit* editor = Editor;
    commitData(editor);
    const bool refused = Model.HasRefusal();
    closeEditor(editor, QAbstractItemDelegate::NoHint);
    return !refused;
}

void PayoffView::AbandonEditor() {
    if (Editor != nullptr) closeEditor(Editor, QAbstractItemDelegate::RevertModelCache);
}

void PayoffView::closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) {
    const QModelIndex at = currentIndex();
    const SettingFault refusal = Model.TakeRefusal();
    const bool refused = !refusal.Text.empty();
    if (editor == Editor) Editor = nullptr;
    QTableView::closeEditor(editor, refused ? QAbstractItemDelegate::NoHint : hint);
    if (!refused) return;
    emit numberRefused(Words(refusal.Title), Words(refusal.Text));
    setCurrentIndex(at);
    setFocus();
}

void PayoffView::GoTo(int line) {
    const QModelIndex at = Model.index(line, PayoffModel::First);
    if (PayoffModel::IsEditable(line)) setCurrentIndex(at);  // which shows it
    if (PayoffModel::IsHeading(line)) {
        GoTo(NextEditable(line, 1));
        scrollTo(at, PositionAtTop);
    }
}

}  // namespace tarnwick
