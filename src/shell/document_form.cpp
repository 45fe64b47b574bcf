#include "shell/document_form.h"

#include "controls/message_box.h"
#include "disk/texts.h"

#include <QCloseEvent>
#include <QScopedValueRollback>

namespace lumrake {

void DocumentForm::Form_Unload(bool& Cancel) {
    if ((Changed() & Settings.bPromptSave) != 0) {
        BringToFront(this);
        const QString sFile = GetFilename();
        const QString sQuestion =
            sFile.isEmpty()
                ? QLatin1String("Save new ") + kind_.sTitle.toLower() + QLatin1Char('?')
                : QLatin1String("Save changes to ") + TrimBlanks(sFile.toLower()) + QLatin1Char('?');
        switch (MsgBox(sQuestion, BoxButtons::YesNoCancel, BoxIcon::Question, kind_.sTitle)) {
        case BoxAnswer::Yes: Cancel = !Shell().SaveBeforeClosing(*this); break;
        case BoxAnswer::No: break;
        default: Cancel = true;
        }
    }
    if (Cancel) {
        return;
    }
    LetGo();
    counted.reset();
    if (kind_.iCount == 0) {
        Shell().UpdateToolbars(kind_.sCommands, false);
    }
}

void DocumentForm::closeEvent(QCloseEvent* event) {
    if (!counted) {
        return; // nothing is open in it any more, or never was
    }
    bool Cancel = true; // asked again while its own question stands
    if (!closing_) {
        const QScopedValueRollback closing(closing_, true);
        Cancel = false;
        Form_Unload(Cancel);
    }
    event->setAccepted(!Cancel);
}

} // namespace lumrake
