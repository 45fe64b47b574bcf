#include "controls/panel_bar.h"

#include "controls/picture_box.h"
#include "controls/spoken.h"
#include "controls/whole_pixels.h"

#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStringList>
#include <QToolTip>

#include <algorithm>
#include <numeric>

namespace lumrake {

namespace {
constexpr int kHeight = 18;
constexpr int kTextMargin = 4;
} // namespace

PanelBar::PanelBar(QWidget* parent) : QWidget(parent) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    SetSpoken(this, {.role = QAccessible::StatusBar});
    setAccessibleName(QStringLiteral("Status bar"));
}

void PanelBar::AddPanel(const Panel& panel) {
    panels_.push_back(panel);
    Arrange();
}

void PanelBar::SetText(int index, const QString& text) {
    Panel& panel = panels_[static_cast<std::size_t>(index - 1)];
    if (panel.Text == text) {
        return;
    }
    panel.Text = text;
    QStringList texts;
    for (const Panel& one : panels_) {
        texts << one.Text;
    }
    setAccessibleDescription(texts.join(QLatin1String("; ")));
    update();
}

void PanelBar::Arrange() {
    widths_.clear();
    for (const Panel& panel : panels_) {
        widths_.push_back(panel.Spring ? panel.LeastWidth : panel.MinWidth);
    }
    int spare = width() - std::accumulate(widths_.begin(), widths_.end(), 0);
    for (std::size_t i = 0; i < panels_.size() && spare > 0; ++i) {
        if (panels_[i].Spring) {
            widths_[i] += spare;
            spare = 0;
        }
    }
    for (const bool toLeast : {true, false}) {
        for (std::size_t i = panels_.size(); i-- > 0 && spare < 0;) {
            const int kept = toLeast ? std::min(panels_[i].LeastWidth, widths_[i]) : 0;
            const int loss = std::min(widths_[i] - kept, -spare);
            widths_[i] -= loss;
            spare += loss;
        }
    }
    update();
    if (PanelsMoved) {
        PanelsMoved();
    }
}

int PanelBar::PanelLeft(int index) const {
    return std::accumulate(widths_.begin(), widths_.begin() + (index - 1), 0);
}

int PanelBar::PanelWidth(int index) const {
    return widths_[static_cast<std::size_t>(index - 1)];
}

QSize PanelBar::sizeHint() const {
    return {200, kHeight};
}

QSize PanelBar::minimumSizeHint() const {
    return {0, kHeight};
}

void PanelBar::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    for (int index = 1; index <= PanelCount(); ++index) {
        const QRect panel(PanelLeft(index), 0, PanelWidth(index), height());
        if (panel.width() < 4) {
            continue;
        }
        FillFrame(painter, panel.adjusted(1, 1, -1, 0), 1, palette().dark(), palette().light());
        const QRect room = panel.adjusted(kTextMargin, 1, -kTextMargin, 0);
        painter.setPen(palette().color(QPalette::WindowText));
        painter.drawText(room, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                         fontMetrics().elidedText(PanelAt(index).Text, Qt::ElideMiddle, room.width()));
    }
}

void PanelBar::resizeEvent(QResizeEvent*) {
    Arrange();
}

void PanelBar::mousePressEvent(QMouseEvent* event) {
    if (IsKnownButton(*event)) {
        pressed_ = PanelAtX(static_cast<int>(event->position().x()));
    }
}

void PanelBar::mouseReleaseEvent(QMouseEvent* event) {
    if (!IsKnownButton(*event)) {
        return;
    }
    const int released = PanelAtX(static_cast<int>(event->position().x()));
    if (released != 0 && released == pressed_ && rect().contains(event->position().toPoint()) && PanelClick) {
        PanelClick(released);
    }
    pressed_ = 0;
}

bool PanelBar::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip) {
        const auto* help = static_cast<QHelpEvent*>(event);
        const int index = PanelAtX(help->x());
        QToolTip::showText(help->globalPos(), index == 0 ? QString() : PanelAt(index).ToolTipText, this);
        return true;
    }
    return QWidget::event(event);
}

} // namespace lumrake
