#include "display/pathwindow.h"

#include <QKeyEvent>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextEdit>
#include <QVBoxLayout>

#include "display/words.h"

namespace tarnwick {

namespace {

constexpr double HeadingGap = 8, Indent = 18;  // pixels

/// One line, indented by its format and not by blanks, so that a copied path is the path.
void AddLine(QTextCursor& cursor, const QString& text, const QTextBlockFormat& block, const QTextCharFormat& letters) {
    if (cursor.position() > 0) cursor.insertBlock();
    cursor.setBlockFormat(block);
    cursor.insertText(text, letters);
}

QString LineOf(const PathGroup::Entry& entry) {
    return entry.Owner.empty() ? Words(entry.Path) : Words(entry.Owner) + QStringLiteral(":  ") + Words(entry.Path);
}

}  // namespace

PathWindow::PathWindow(Source source, QWidget* parent)
    : QWidget(parent, Qt::Dialog), Paths(std::move(source)), List(new QTextEdit) {
    setObjectName(QStringLiteral("frmPath"));
    setWindowTitle(tr("Path"));
    List->setObjectName(QStringLiteral("picpath"));
    List->verticalScrollBar()->setObjectName(QStringLiteral("vsbPath"));
    List->horizontalScrollBar()->setObjectName(QStringLiteral("hsbPath"));
    List->setAccessibleName(tr("Where the files in use lie"));
    List->setReadOnly(true);
    List->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    List->setLineWrapMode(QTextEdit::NoWrap);
    List->setTabChangesFocus(true);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(List);
    resize(640, 440);
}

void PathWindow::Refresh() {
    std::vector<PathGroup> groups = Paths();
    const auto same = [](const PathGroup& a, const PathGroup& b) {
        return a.Heading == b.Heading && a.Entries == b.Entries;
    };
    // What the user has selected there stays.
    if (std::equal(groups.begin(), groups.end(), Shown.begin(), Shown.end(), same)) return;

    QTextBlockFormat headingBlock, pathBlock;
    headingBlock.setTopMargin(HeadingGap);
    pathBlock.setLeftMargin(Indent);
    QTextCharFormat bold, plain, slanted;
    bold.setFontWeight(QFont::Bold);
    slanted.setFontItalic(true);
    List->clear();
    QTextCursor cursor(List->document());
    for (const PathGroup& group : groups) {
        AddLine(cursor, Words(group.Heading), headingBlock, bold);
        for (const PathGroup::Entry& entry : group.Entries) AddLine(cursor, LineOf(entry), pathBlock, plain);
        if (group.Entries.empty()) AddLine(cursor, tr("(none)"), pathBlock, slanted);
    }
    List->moveCursor(QTextCursor::Start);
    Shown = std::move(groups);
}

bool PathWindow::event(QEvent* event) {
    if (event->type() == QEvent::Show || event->type() == QEvent::WindowActivate) Refresh();
    return QWidget::event(event);
}

void PathWindow::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) {
        close();
    } else {
        QWidget::keyPressEvent(event);
    }
}

}  // namespace tarnwick
