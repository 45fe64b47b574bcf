#include "controls/toolbar.h"

#include "base/row_hit.h"
#include "controls/spoken.h"
#include "controls/watch.h"

#include <QActionEvent>
#include <QApplication>
#include <QFrame>
#include <QKeyEvent>
#include <QLayout>
#include <QToolButton>
#include <QWidgetAction>

#include <algorithm>

namespace lumrake {

namespace {
constexpr int kBarHeight = 29;
constexpr int kGapWidth = 8;
constexpr QRect kGapLine(0, 5, 6, kBarHeight - 11);
constexpr QSize kButtonSize(24, 23);
} // namespace

Toolbar::Toolbar(QWidget* parent) : QToolBar(parent) {
    setMovable(false);
    setContextMenuPolicy(Qt::PreventContextMenu);
    toggleViewAction()->setVisible(false); // the bar itself always stays
    SetHelpAt(this, [this](QPoint place) { return HelpAtX(place.x()); });
    layout()->setContentsMargins(0, 0, 0, 0);
    layout()->setSpacing(0);
    setIconSize(kPictureSize);
    setFixedHeight(kBarHeight); // behind the size of the icons, which takes a fixed height away
}

QAction* Toolbar::NewGap() {
    auto* line = new QFrame;
    line->setFixedSize(kGapWidth, kBarHeight);
    line->setFrameStyle(static_cast<int>(QFrame::VLine) | static_cast<int>(QFrame::Sunken));
    line->setFrameRect(kGapLine);
    auto* gap = new QWidgetAction(this);
    gap->setDefaultWidget(line);
    return gap;
}

void Toolbar::AddButton(int group, QAction* action) {
    while (static_cast<int>(groups_.size()) <= group) {
        groups_.push_back({NewGap()});
        addAction(groups_.back().front());
    }
    addAction(action);
    groups_[static_cast<std::size_t>(group)].push_back(action);
}

void Toolbar::ShowGroups(std::span<const std::int16_t> flags) {
    // An action cannot be hidden on the bar alone, so it leaves it.
    QAction* next = nullptr;
    for (std::size_t group = groups_.size(); group-- > 0;) {
        for (auto action = groups_[group].rbegin(); action != groups_[group].rend(); ++action) {
            if (flags[group] == 0) {
                removeAction(*action);
                continue;
            }
            if (!actions().contains(*action)) {
                insertAction(next, *action);
            }
            next = *action;
        }
    }
    layout()->activate();
    for (QAction* action : actions()) {
        if (auto* line = qobject_cast<QFrame*>(widgetForAction(action))) {
            // A line at the very edge would separate nothing.
            line->setFrameShape(action == actions().front() ? QFrame::NoFrame : QFrame::VLine);
        }
    }
}

void Toolbar::actionEvent(QActionEvent* event) {
    QToolBar::actionEvent(event);
    QWidget* control = event->type() == QEvent::ActionAdded ? widgetForAction(event->action()) : nullptr;
    if (control == nullptr) {
        return;
    }
    SetHelpAt(control, [this, control](QPoint place) { return HelpAtX(control->x() + place.x()); });
    Watch(control).speaksOn = kDisabledAsWell;
    control->installEventFilter(this);
    if (auto* button = qobject_cast<QToolButton*>(control)) {
        control->setFixedSize(kButtonSize);
        if (button->isCheckable()) { // the toolkit's own action would press it and give no command
            SetSpoken(button, {.role = QAccessible::RadioButton,
                               .actions = {{"Press", [button] { button->click(); }}}});
        }
        control->setAccessibleName(event->action()->toolTip());
    }
}

std::int32_t Toolbar::HelpAtX(int x) const {
    std::vector<int> widths;
    for (QAction* action : actions()) {
        widths.push_back(widgetForAction(action)->width());
    }
    const int hit = HitInRow(x, widths);
    return hit == 0 ? 0 : actions()[hit - 1]->data().toInt();
}

QList<QToolButton*> Toolbar::KeyStops() const {
    QList<QToolButton*> stops;
    for (QAction* action : actions()) {
        auto* button = qobject_cast<QToolButton*>(widgetForAction(action));
        if (button != nullptr && button->isEnabled()) {
            stops.push_back(button);
        }
    }
    return stops;
}

void Toolbar::TakeKeys() {
    if (isAncestorOf(QApplication::focusWidget())) {
        GiveKeysBack();
        return;
    }
    const QList<QToolButton*> stops = KeyStops();
    if (!stops.isEmpty()) {
        keysFrom_ = QApplication::focusWidget();
        const auto pressed = std::ranges::find_if(stops, &QToolButton::isChecked);
        (pressed == stops.end() ? stops.front() : *pressed)->setFocus(Qt::ShortcutFocusReason);
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
    const QList<QToolButton*> stops = KeyStops();
    const auto from = std::ranges::find(stops, QApplication::focusWidget());
    if (QToolButton* next = stops.value(from - stops.begin() + step)) {
        next->setFocus(Qt::TabFocusReason);
    }
}

bool Toolbar::eventFilter(QObject* control, QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        switch (static_cast<QKeyEvent*>(event)->key()) {
        case Qt::Key_Left: StepKeys(-1); return true;
        case Qt::Key_Right: StepKeys(1); return true;
        case Qt::Key_Escape: GiveKeysBack(); return true;
        default: break;
        }
    }
    return QToolBar::eventFilter(control, event);
}

} // namespace lumrake
