#include "controls/toolbar.h"

#include "controls/accessible_role.h"
#include "controls/pictures.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolButton>
#include <qdrawutil.h>

namespace lumrake {

namespace {

constexpr int kBarHeight = 29;
constexpr int kButtonWidth = 24;
constexpr int kButtonHeight = 23;
constexpr int kSeparatorWidth = 8;
constexpr QSize kPictureSize(18, 17);

int WidthOf(ButtonStyle style) {
    return style == ButtonStyle::Separator ? kSeparatorWidth : kButtonWidth;
}

} // namespace

Toolbar::Toolbar(QWidget* parent) : QWidget(parent) {
    setMouseTracking(true);
    setFixedHeight(kBarHeight);
    SetAccessibleRole(this, QAccessible::ToolBar);
}

void Toolbar::AddButton(const ToolbarButton& button) {
    Slot slot{.button = button};
    if (button.Style != ButtonStyle::Separator) {
        auto* control = new QToolButton(this);
        control->setIcon(LoadIcon(button.Picture, kPictureSize));
        control->setIconSize(kPictureSize);
        control->setToolTip(button.ToolTipText);
        control->setAccessibleName(button.ToolTipText);
        control->setAutoRaise(true);
        control->setFocusPolicy(Qt::NoFocus);
        // A disabled button would keep its mouse moves to itself.
        control->setMouseTracking(true);
        control->installEventFilter(this);
        control->setCheckable(button.Style == ButtonStyle::Group);
        control->setAutoExclusive(button.Style == ButtonStyle::Group);
        const int index = ButtonCount() + 1;
        // Not toggled: a click on the button that is pressed already has to be told as well.
        connect(control, &QToolButton::clicked, this, [this, index] {
            if (ButtonClick) {
                ButtonClick(index);
            }
        });
        slot.control = control;
    }
    slots_.push_back(slot);
    Arrange();
}

int Toolbar::ButtonWidth(int index) const {
    return SlotAt(index).visible ? WidthOf(SlotAt(index).button.Style) : 0;
}

int Toolbar::FullWidth() const {
    int width = 0;
    for (const Slot& slot : slots_) {
        width += slot.control != nullptr ? kButtonWidth : kSeparatorWidth;
    }
    return width;
}

void Toolbar::SetButtonStyle(int index, ButtonStyle style) {
    SlotAt(index).button.Style = style;
    Arrange();
}

void Toolbar::SetButtonVisible(int index, bool visible) {
    SlotAt(index).visible = visible;
    Arrange();
}

void Toolbar::SetButtonEnabled(int index, bool enabled) {
    if (QToolButton* control = SlotAt(index).control) {
        control->setEnabled(enabled);
    }
}

bool Toolbar::IsButtonEnabled(int index) const {
    const QToolButton* control = SlotAt(index).control;
    return control != nullptr && control->isEnabled();
}

void Toolbar::PressButton(int index) {
    if (QToolButton* control = SlotAt(index).control) {
        control->setChecked(true);
    }
}

bool Toolbar::IsButtonPressed(int index) const {
    const QToolButton* control = SlotAt(index).control;
    return control != nullptr && control->isChecked();
}

bool Toolbar::CanTakeKeys(int index) const {
    return IsButtonVisible(index) && IsButtonEnabled(index);
}

void Toolbar::TakeKeys() {
    if (isAncestorOf(QApplication::focusWidget())) {
        GiveKeysBack();
        return;
    }
    int first = 0;
    for (int index = ButtonCount(); index >= 1; --index) {
        if (CanTakeKeys(index) && (first == 0 || !IsButtonPressed(first))) {
            first = index;
        }
    }
    if (first != 0) {
        keysFrom_ = QApplication::focusWidget();
        SlotAt(first).control->setFocus(Qt::ShortcutFocusReason);
    }
}

void Toolbar::GiveKeysBack() {
    if (keysFrom_) {
        keysFrom_->setFocus(Qt::OtherFocusReason);
    } else if (QWidget* focus = QApplication::focusWidget()) {
        focus->clearFocus();
    }
}

void Toolbar::StepKeys(int step) {
    int index = 1;
    while (index < ButtonCount() && SlotAt(index).control != QApplication::focusWidget()) {
        ++index;
    }
    do {
        index += step;
    } while (index >= 1 && index <= ButtonCount() && !CanTakeKeys(index));
    if (index >= 1 && index <= ButtonCount()) {
        SlotAt(index).control->setFocus(Qt::TabFocusReason);
    }
}

void Toolbar::Arrange() {
    int left = 0;
    for (int index = 1; index <= ButtonCount(); ++index) {
        if (QToolButton* control = SlotAt(index).control) {
            control->setGeometry(left, (kBarHeight - kButtonHeight) / 2, kButtonWidth, kButtonHeight);
            control->setVisible(SlotAt(index).visible);
        }
        left += ButtonWidth(index);
    }
    update();
}

QSize Toolbar::sizeHint() const {
    return {FullWidth(), kBarHeight};
}

void Toolbar::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    int left = 0;
    for (int index = 1; index <= ButtonCount(); ++index) {
        const int width = ButtonWidth(index);
        // A line at the very edge would separate nothing.
        if (SlotAt(index).button.Style == ButtonStyle::Separator && width > 0 && left > 0) {
            const int middle = left + width / 2 - 1;
            qDrawShadeLine(&painter, middle, 5, middle, kBarHeight - 6, palette());
        }
        left += width;
    }
}

bool Toolbar::eventFilter(QObject* control, QEvent* event) {
    if (event->type() == QEvent::MouseMove && MouseMove) {
        MouseMove(static_cast<QWidget*>(control)->x() + static_cast<QMouseEvent*>(event)->position().x());
    }
    if (event->type() == QEvent::KeyPress) {
        switch (static_cast<QKeyEvent*>(event)->key()) {
        case Qt::Key_Left: StepKeys(-1); return true;
        case Qt::Key_Right: StepKeys(1); return true;
        case Qt::Key_Escape: GiveKeysBack(); return true;
        default: break;
        }
    }
    return QWidget::eventFilter(control, event);
}

void Toolbar::mouseMoveEvent(QMouseEvent* event) {
    if (childAt(event->position().toPoint()) == nullptr && MouseMove) {
        MouseMove(event->position().x()); // moves over a button were told already
    }
}

} // namespace lumrake
