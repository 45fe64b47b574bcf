#include "controls/message_box.h"

#include "controls/screen.h"

#include <QFontInfo>
#include <QFontMetrics>
#include <QGridLayout>
#include <QGuiApplication>
#include <QMessageBox>
#include <QSpacerItem>

#include <utility>

namespace lumrake {

namespace {

MessageBoxAnswerer answerer;

/// Makes a box wide enough for its title, which the desktop draws: in letters taken to be bold and a little
/// larger than the box's own, between its buttons and an icon.
void WidenToTitle(QMessageBox& box) {
    constexpr int kBesideTitle = 120; // logical pixels
    QFont letters = box.font();
    letters.setBold(true);
    letters.setPixelSize(QFontInfo(letters).pixelSize() * 5 / 4);
    auto* rows = static_cast<QGridLayout*>(box.layout());
    const int width = QFontMetrics(letters).horizontalAdvance(box.windowTitle()) + kBesideTitle;
    rows->addItem(new QSpacerItem(width, 0), rows->rowCount(), 0, 1, -1);
}

BoxAnswer ShowRealBox(const MessageBox& message) {
    QMessageBox box(DialogOwner());
    box.setWindowTitle(message.title);
    box.setTextFormat(Qt::PlainText);
    box.setText(message.text);
    constexpr QMessageBox::Icon kIcons[] = {QMessageBox::NoIcon, QMessageBox::Information,
                                            QMessageBox::Warning,
                                            QMessageBox::Question}; // in the order of BoxIcon
    box.setIcon(kIcons[static_cast<int>(message.icon)]);
    BoxAnswer closed = BoxAnswer::Ok;
    // Desktops arrange the buttons in orders of their own; Enter means the same on all of them.
    switch (message.buttons) {
    case BoxButtons::Ok: box.setStandardButtons(QMessageBox::Ok); break;
    case BoxButtons::YesNo:
        box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
        box.setEscapeButton(QMessageBox::No);
        closed = BoxAnswer::No;
        break;
    case BoxButtons::YesNoCancel:
        box.setStandardButtons(QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
        box.setEscapeButton(QMessageBox::Cancel);
        closed = BoxAnswer::Cancel;
        break;
    }
    box.setDefaultButton(QMessageBox::Yes); // where it is one of them
    WidenToTitle(box);
    // The hourglass of work under way would hide the pointer that the answer needs.
    const bool busy = QGuiApplication::overrideCursor() != nullptr;
    if (busy) {
        QGuiApplication::setOverrideCursor(Qt::ArrowCursor);
    }
    const int pressed = box.exec();
    if (busy) {
        QGuiApplication::restoreOverrideCursor();
    }
    switch (pressed) {
    case QMessageBox::Yes: return BoxAnswer::Yes;
    case QMessageBox::No: return BoxAnswer::No;
    case QMessageBox::Ok: return BoxAnswer::Ok;
    default: return closed;
    }
}

} // namespace

BoxAnswer MsgBox(const QString& text, BoxButtons buttons, BoxIcon icon, const QString& title) {
    const MessageBox message{text, title, icon, buttons};
    return answerer ? answerer(message) : ShowRealBox(message);
}

void SetMessageBoxAnswerer(MessageBoxAnswerer newAnswerer) {
    answerer = std::move(newAnswerer);
}

} // namespace lumrake
