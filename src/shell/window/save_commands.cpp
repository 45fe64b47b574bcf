#include "shell/window/save_commands.h"

#include "controls/common_dialog.h"
#include "controls/message_box.h"
#include "shell/document_form.h"
#include "shell/window/file_commands.h"

#include <QPointer>

#include <optional>

namespace lumrake {

namespace {

/// The answer of AskNewFileName, which proposes the document's own file; nothing as well when the window was closed while
/// the dialog stood.
std::optional<QString> AskName(DocumentForm& document) {
    const QPointer<DocumentForm> alive(&document);
    const std::optional<QString> sName =
        AskNewFileName(document.Kind().sSaveAsTitle, document.Kind().sSaveFilter, document.GetFilename());
    return alive.isNull() ? std::nullopt : sName;
}

/// To its own file, unless another program changed that.
Outcome SaveUnchanged(DocumentForm& document) {
    return document.FindFileUnchanged().Then([&document] { return document.SaveTo(document.GetFilename()); });
}

/// Under another name.
Outcome SaveUnder(DocumentForm& document, const QString& sFile) {
    const DocumentKind& kind = document.Kind();
    Outcome outcome = document.SaveTo(sFile);
    if (outcome.IsDone() && kind.bRecent) {
        AddRecentFile(sFile);
    }
    return outcome;
}

} // namespace

bool Save(DocumentForm& document) {
    const QString& sTitle = document.Kind().sSaveTitle;
    return document.GetFilename().isEmpty() ? SaveAs(document) : TellFailure(SaveUnchanged(document), sTitle);
}

bool SaveAs(DocumentForm& document) {
    const QString& sTitle = document.Kind().sSaveTitle;
    const std::optional<QString> sNewName = AskName(document);
    return sNewName && TellFailure(SaveUnder(document, *sNewName), sTitle);
}

bool SaveBeforeClosing(DocumentForm& document) {
    bool bAsked = document.GetFilename().isEmpty();
    std::optional<QString> sName = bAsked ? AskName(document) : document.GetFilename();
    if (bAsked && sName.value_or(QString()).isEmpty()) { // a new one is given up with its dialog
        return true;
    }
    QString sReason;
    while (sName) {
        if (!sName->isEmpty()) {
            const Outcome outcome = bAsked ? SaveUnder(document, *sName) : SaveUnchanged(document);
            if (outcome.IsDone()) {
                return true;
            }
            sReason = outcome.Reason();
        }
        const BoxAnswer answer =
            MsgBox(sReason + QLatin1String("\n\nSave under another name?"), BoxButtons::YesNoCancel,
                   BoxIcon::Question, document.Kind().sSaveTitle);
        if (answer != BoxAnswer::Yes) {
            return answer == BoxAnswer::No;
        }
        bAsked = true;
        sName = AskName(document);
    }
    return false;
}

} // namespace lumrake
