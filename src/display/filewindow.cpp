#include "display/filewindow.h"

#include <QFileDialog>
#include <QStringList>

#include "display/words.h"

namespace tarnwick {

std::string ChooseFile(QWidget& parent, Table& t, FilePurpose purpose) {
    const FilePurposeInfo& info = InfoOf(purpose);
    QStringList types;
    for (const std::string_view type : info.Types) types << Words(type).replace(QLatin1Char(';'), QLatin1Char(' '));
    QFileDialog dialog(&parent, Words(info.Title), Words(t.GameFolder));
    dialog.setObjectName(QStringLiteral("frmFile"));
    dialog.setNameFilters(types);
    dialog.setFileMode(info.Need == FileNeed::Exists ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
    if (info.Need == FileNeed::Overwrite || info.Need == FileNeed::CopyOver) {
        dialog.setAcceptMode(QFileDialog::AcceptSave);
    }
    dialog.setOption(QFileDialog::DontConfirmOverwrite);  // asked below, in the words of the purpose
    std::string path;
    while (dialog.exec() == QDialog::Accepted) {
        const QStringList chosen = dialog.selectedFiles();
        if (chosen.isEmpty()) break;
        const auto type = static_cast<std::size_t>(qMax(0, types.indexOf(dialog.selectedNameFilter())));
        const std::string folder = Utf8(dialog.directory().absolutePath());
        if (AcceptFileName(t, purpose, Utf8(chosen.front()), folder, info.Types[type], path) == NameChoice::Use) {
            return path;
        }
    }
    return {};
}

}  // namespace tarnwick
