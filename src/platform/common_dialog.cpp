#include "platform/common_dialog.h"

#include "platform/screen.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QHeaderView>
#include <QSplitter>
#include <QStringList>
#include <QTreeView>

#include <utility>

namespace lumrake {

CommonDialog comDialog;

namespace {

constexpr int kPlacesWidth = 96, kFilesWidth = 394; ///< pixels of the two lists of the real dialog

FileDialogAnswerer& Answerer() {
    static FileDialogAnswerer answerer;
    return answerer;
}

/// "A (*.X,*.Y)|*.X;*.Y" as the toolkit's "A (*.X,*.Y) (*.X *.Y)". The dialog is told to hide the last
/// brackets, so that the description is shown as it stands. The pattern "*.*" must match names without a dot.
QStringList NameFilters(const QString& filter) {
    QStringList filters;
    const QStringList parts = filter.split(QLatin1Char('|'));
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        QStringList patterns;
        for (const QString& pattern : parts[i + 1].split(QLatin1Char(';'), Qt::SkipEmptyParts)) {
            patterns << (pattern == QLatin1String("*.*") ? QStringLiteral("*") : pattern);
        }
        filters << parts[i] + QLatin1String(" (") + patterns.join(QLatin1Char(' ')) + QLatin1Char(')');
    }
    return filters;
}

QString AskRealDialog(CommonDialog::Kind kind, const CommonDialog& request) {
    static QString lastDirectory; // of this run; the current directory before the first choice

    QFileDialog dialog(DialogOwner(), request.DialogTitle);
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setOption(QFileDialog::DontConfirmOverwrite);
    dialog.setOption(QFileDialog::HideNameFilterDetails);
    dialog.setNameFilters(NameFilters(request.Filter));
    const bool open = kind == CommonDialog::Kind::Open;
    dialog.setAcceptMode(open ? QFileDialog::AcceptOpen : QFileDialog::AcceptSave);
    dialog.setFileMode(open ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
    const QFileInfo proposed(request.FileName);
    if (request.FileName.isEmpty()) {
        dialog.setDirectory(lastDirectory.isEmpty() ? QDir::currentPath() : lastDirectory);
    } else {
        dialog.setDirectory(proposed.absolutePath());
        dialog.selectFile(proposed.fileName());
    }
    // Left to itself the dialog cuts the names of places, sizes and dates, but has room for types, which nobody
    // knows of such files.
    if (auto* split = dialog.findChild<QSplitter*>()) {
        split->setSizes({kPlacesWidth, kFilesWidth});
    }
    if (auto* list = dialog.findChild<QTreeView*>()) {
        list->hideColumn(2);
        list->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
        list->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    }
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) {
        return {};
    }
    lastDirectory = dialog.directory().absolutePath();
    return dialog.selectedFiles().constFirst();
}

} // namespace

void CommonDialog::Action(Kind kind) {
    const QString chosen = Answerer() ? Answerer()(kind, *this) : AskRealDialog(kind, *this);
    FileName = chosen;
    FileTitle = QFileInfo(chosen).fileName();
}

void SetFileDialogAnswerer(FileDialogAnswerer answerer) {
    Answerer() = std::move(answerer);
}

} // namespace lumrake
