#include "controls/common_dialog.h"

#include "controls/message_box.h"
#include "controls/screen.h"
#include "disk/files.h"
#include "disk/texts.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QFileIconProvider>
#include <QFileInfo>
#include <QHash>
#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>
#include <QSplitter>
#include <QStringList>
#include <QTreeView>

#include <utility>

namespace lumrake {

CommonDialog comDialog;

namespace {

constexpr int kPlacesWidth = 96, kFilesWidth = 394; ///< pixels of the two lists of the real dialog

FileDialogAnswerer answerer;

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

/// Tells files from directories and opens neither. The toolkit's own looks into every listed file for its type, and
/// stands still with the whole program where a file does not answer.
class PlainIcons : public QFileIconProvider {
  public:
    using QFileIconProvider::icon;
    QIcon icon(const QFileInfo& info) const override { return icon(info.isDir() ? Folder : File); }
    /// Of a column that is not shown. Never empty: the dialog leaves such a file out of its list at times.
    QString type(const QFileInfo&) const override { return QStringLiteral("File"); }
};

/// The dialog of the toolkit, but that the name of a file to open may be typed in another case.
class Dialog : public QFileDialog {
  public:
    explicit Dialog(const QString& title) : QFileDialog(DialogOwner(), title) {
        setIconProvider(&icons_); // before it has listed anything
        setOption(DontUseNativeDialog);
        name_ = findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        connect(name_, &QLineEdit::textChanged, this, &Dialog::EnableOpen);
    }

  protected:
    void accept() override {
        if (acceptMode() == AcceptOpen && !name_->text().isEmpty()) {
            const QString typed = directory().absoluteFilePath(name_->text());
            if (const QString found = FindFile(typed).value_or(typed); found != typed) {
                name_->setText(found);
            }
        }
        QFileDialog::accept();
    }

  private:
    /// Whether there is such a file is told when the button is pressed.
    void EnableOpen(const QString& name) {
        if (QPushButton* open = findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Open)) {
            open->setEnabled(!name.isEmpty());
        }
    }

    PlainIcons icons_;
    QLineEdit* name_ = nullptr;
};

QString AskRealDialog(CommonDialog::Kind kind, const CommonDialog& request) {
    // Of the last choice in this run. Before it: the current directory and the first filter.
    static QString lastDirectory;
    static QHash<QString, QString> lastFilters; // one for each list of filters

    Dialog dialog(request.DialogTitle);
    dialog.setOption(QFileDialog::DontConfirmOverwrite);
    dialog.setOption(QFileDialog::HideNameFilterDetails);
    dialog.setNameFilters(NameFilters(request.Filter));
    dialog.selectNameFilter(lastFilters.value(request.Filter) +
                            QLatin1String(" ()")); // hidden brackets count
    const bool open = kind == CommonDialog::Kind::Open;
    dialog.setAcceptMode(open ? QFileDialog::AcceptOpen : QFileDialog::AcceptSave);
    const bool bMustExist = open && (request.Flags & kFileMustExist) != 0;
    dialog.setFileMode(bMustExist ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
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
    const QString chosen = dialog.selectedFiles().constFirst();
    lastDirectory = QFileInfo(chosen).absolutePath(); // a path may have been typed
    lastFilters[request.Filter] = dialog.selectedNameFilter();
    return chosen;
}

} // namespace

void CommonDialog::Action(Kind kind) {
    const QString chosen = answerer ? answerer(kind, *this) : AskRealDialog(kind, *this);
    FileName = kind == Kind::Open ? FindFile(chosen).value_or(chosen) : chosen;
    FileTitle = QFileInfo(FileName).fileName();
}

QString AskOpenFileName(const QString& sDialogTitle, const QString& sFilter, const QString& sDirectory) {
    comDialog.Flags = kDialogFlags;
    comDialog.Filter = sFilter;
    comDialog.DialogTitle = sDialogTitle;
    comDialog.FileName = sDirectory.isEmpty() ? QString() : sDirectory + QLatin1Char('/');
    comDialog.Action(CommonDialog::Kind::Open);
    return TrimBlanks(comDialog.FileName).isEmpty() ? QString() : comDialog.FileName;
}

std::optional<QString> AskNewFileName(const QString& sDialogTitle, const QString& sFilter,
                                      const QString& sProposed) {
    comDialog.Flags = kDialogFlags;
    comDialog.Filter = sFilter;
    comDialog.DialogTitle = sDialogTitle;
    comDialog.FileName = sProposed;
    comDialog.Action(CommonDialog::Kind::Save);
    const NewFile target = PathForNewFile(comDialog.FileName);
    if (target.path.isEmpty()) {
        return std::nullopt;
    }
    const QString sQuestion = target.path.toLower() + QLatin1String(" already exists, overwrite?");
    if (target.exists &&
        MsgBox(sQuestion, BoxButtons::YesNo, BoxIcon::Question, QStringLiteral("Save")) != BoxAnswer::Yes) {
        return QString();
    }
    return target.path;
}

void SetFileDialogAnswerer(FileDialogAnswerer newAnswerer) {
    answerer = std::move(newAnswerer);
}

} // namespace lumrake
