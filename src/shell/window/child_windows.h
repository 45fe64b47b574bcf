#pragma once

#include "controls/common_dialog.h"

#include <QPointer>
#include <QString>

#include <memory>
#include <optional>

namespace lumrake {

/// Makes a document window and launches it with these arguments. One that opens belongs to its frame in the main window
/// from then on; one that does not is let go at once, and gives null.
template <class Form, class... Arguments> Form* OpenWindow(const Arguments&... arguments) {
    auto child = std::make_unique<Form>();
    return child->Launch(arguments...) ? child.release() : nullptr;
}

/// The answer of AskNewFileName, which proposes the document's own file; nothing as well when the window was closed while
/// the dialog stood.
template <class Form>
std::optional<QString> AskName(Form& form, const QString& sDialogTitle, const QString& sFilter) {
    const QPointer<Form> document(&form);
    const std::optional<QString> sName = AskNewFileName(sDialogTitle, sFilter, form.GetFilename());
    return document.isNull() ? std::nullopt : sName;
}

} // namespace lumrake
