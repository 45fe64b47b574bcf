#pragma once

#include <QString>

#include <functional>
#include <optional>

namespace lumrake {

/// Hide the read-only box, path must exist, file must exist (Open only), no read-only return.
inline constexpr int kFileMustExist = 0x1000, kDialogFlags = 0x8804 | kFileMustExist;

/// The platform's file dialog. Set the properties, run Action, read FileName and FileTitle.
class CommonDialog {
  public:
    enum class Kind { Open = 1, Save = 2 };

    int Flags = kDialogFlags; ///< of these kFileMustExist counts, the others hold in any case
    /// Pairs of description and patterns, all separated by "|": "Raw files (*.RAW)|*.RAW|All files
    /// (*.*)|*.*". Patterns are matched without regard to case; "*.*" matches every name.
    QString Filter;
    QString DialogTitle;
    /// In: the file that the dialog proposes, with its path; a path that ends in "/" proposes the directory alone;
    /// empty for the directory of the last choice. Out: the full path chosen, empty when the dialog was cancelled. A
    /// file to open is spelled as the disk spells it, a name to save under as the user does.
    QString FileName;
    /// Out: the last component of FileName.
    QString FileTitle;

    /// Runs the dialog modally and returns when it is closed. Whether a file is overwritten is not asked
    /// here.
    void Action(Kind kind);
};

/// The one dialog of the program; every command sets all its properties before use.
extern CommonDialog comDialog;

/// Runs an Open dialog, in a directory if one is given, else where the last one was left. Gives the path chosen, with
/// its directory, or the empty text when the user cancelled.
QString AskOpenFileName(const QString& sDialogTitle, const QString& sFilter,
                        const QString& sDirectory = QString());

/// Runs a Save dialog and asks before an existing file is overwritten. Gives the path to write, nothing when the user
/// gave the dialog up, and the empty text, which nothing is saved under, when he did not answer Yes.
std::optional<QString> AskNewFileName(const QString& sDialogTitle, const QString& sFilter,
                                      const QString& sProposed);

/// The one seam through which tests answer file dialogs: gets the dialog as set up and returns the full path
/// chosen, or an empty text for a cancel. An empty function brings the real dialog back.
using FileDialogAnswerer = std::function<QString(CommonDialog::Kind, const CommonDialog&)>;
void SetFileDialogAnswerer(FileDialogAnswerer answerer);

} // namespace lumrake
