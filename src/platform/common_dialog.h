#pragma once

#include <QString>

#include <functional>

namespace lumrake {

/// Hide the read-only box, path must exist, file must exist (Open only), no read-only return.
inline constexpr int kDialogFlags = 0x9804;

/// The platform's file dialog. Set the properties, run Action, read FileName and FileTitle.
class CommonDialog {
  public:
    enum class Kind { Open = 1, Save = 2 };

    int Flags = 0;
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

/// The one seam through which tests answer file dialogs: gets the dialog as set up and returns the full path
/// chosen, or an empty text for a cancel. An empty function brings the real dialog back.
using FileDialogAnswerer = std::function<QString(CommonDialog::Kind, const CommonDialog&)>;
void SetFileDialogAnswerer(FileDialogAnswerer answerer);

} // namespace lumrake
