#pragma once

#include <QString>

#include <functional>

namespace lumrake {

enum class BoxIcon { None, Information, Exclamation, Question };
enum class BoxButtons { Ok, YesNo, YesNoCancel };
enum class BoxAnswer { Ok, Yes, No, Cancel };

struct MessageBox {
    QString text; ///< shown as plain text, whatever it holds
    QString title;
    BoxIcon icon = BoxIcon::None;
    BoxButtons buttons = BoxButtons::Ok;
};

/// Shows a modal message box and waits for its answer. Closing the box by Escape or by its close button is
/// the answer Ok, No or Cancel, whichever leaves things as they are.
BoxAnswer MsgBox(const QString& text, BoxButtons buttons, BoxIcon icon, const QString& title);

/// The one seam through which tests answer message boxes; an empty function brings the real box back.
using MessageBoxAnswerer = std::function<BoxAnswer(const MessageBox&)>;
void SetMessageBoxAnswerer(MessageBoxAnswerer answerer);

} // namespace lumrake
