#include "controls/tab_strip.h"

#include "controls/watch.h"

#include <QApplication>
#include <QShortcut>
#include <QStackedWidget>
#include <QStyleOptionTab>
#include <QStyleOptionTabWidgetFrame>
#include <QStylePainter>
#include <QTabBar>
#include <algorithm>
#include <numeric>

namespace lumrake {

namespace {
constexpr int kFrame = 2;                     ///< between the strip's edge and its pages
constexpr int kHelpTop = 3, kHelpBottom = 18; ///< rows of the strip in which the tabs have their prompts
} // namespace

/// Tabs of given widths. The style's own painting would leave room beside the captions that these widths do
/// not have, hence the caption is drawn here, over the whole face.
class FixedTabBar : public QTabBar {
  public:
    FixedTabBar(const std::vector<Tab>& tabs, QWidget* parent) : QTabBar(parent) {
        setExpanding(false);
        setUsesScrollButtons(false);
        setDrawBase(false);
        setElideMode(Qt::ElideNone);
        for (std::size_t i = 0; i < tabs.size(); ++i) {
            const bool last = i + 1 == tabs.size();
            widths_.push_back(last ? tabs[i].Width : tabs[i + 1].Left - tabs[i].Left);
        }
        for (const Tab& tab : tabs) {
            addTab(tab.Caption);
        }
    }

    int FullWidth() const { return std::accumulate(widths_.begin(), widths_.end(), 0); }

  protected:
    QSize tabSizeHint(int index) const override {
        return {widths_[static_cast<std::size_t>(index)], TabStrip::kTabHeight};
    }
    QSize minimumTabSizeHint(int index) const override { return tabSizeHint(index); }

    void paintEvent(QPaintEvent*) override {
        QStylePainter painter(this);
        // The tab in front overlaps its neighbours, so it comes last.
        for (int i = 0; i < count(); ++i) {
            if (i != currentIndex()) {
                PaintTab(painter, i);
            }
        }
        if (currentIndex() >= 0) {
            PaintTab(painter, currentIndex());
        }
    }

  private:
    void PaintTab(QStylePainter& painter, int index) const {
        QStyleOptionTab option;
        initStyleOption(&option, index);
        painter.drawControl(QStyle::CE_TabBarTabShape, option);
        const QRect face = option.rect.adjusted(1, 1, -1, 0);
        painter.drawItemText(face, Qt::AlignCenter | Qt::TextShowMnemonic, option.palette, isEnabled(),
                             tabText(index), QPalette::WindowText);
        if (hasFocus() && index == currentIndex()) {
            QStyleOptionFocusRect focus;
            focus.initFrom(this);
            focus.rect = face.adjusted(1, 2, -1, -2);
            painter.drawPrimitive(QStyle::PE_FrameFocusRect, focus);
        }
    }

    std::vector<int> widths_;
};

TabStrip::TabStrip(const std::vector<Tab>& tabs, QWidget* parent)
    : QWidget(parent), bar_(new FixedTabBar(tabs, this)), pages_(new QStackedWidget(this)) {
    pages_->setMouseTracking(true);
    for (std::size_t i = 0; i < tabs.size(); ++i) {
        auto* page = new QWidget;
        page->setMouseTracking(true); // bare places report their moves to the strip
        pages_->addWidget(page);
    }
    if (tabs.size() < 2) {
        bar_->setFocusPolicy(Qt::NoFocus); // there is nothing to choose
    }
    bar_->setGeometry(tabs.empty() ? 0 : tabs.front().Left, 0, bar_->FullWidth(), kTabHeight);
    const auto helpAt = [tabs](QPoint place) {
        const auto tab = std::ranges::find_if(tabs, [place](const Tab& one) {
            return place.x() >= one.Left && place.x() < one.Left + one.HelpWidth;
        });
        const bool isMiddle = place.y() >= kHelpTop && place.y() <= kHelpBottom;
        return isMiddle && tab != tabs.end() ? tab->help : 0;
    };
    SetHelpAt(this, helpAt);
    SetHelpAt(bar_, [this, helpAt](QPoint place) { return helpAt(place + bar_->pos()); });
    QObject::connect(bar_, &QTabBar::currentChanged, this, [this](int index) {
        // Left to itself the focus of a page that goes away would wander through whatever comes next.
        const QWidget* leaving = pages_->currentWidget();
        if (leaving != nullptr && leaving->isAncestorOf(QApplication::focusWidget())) {
            bar_->setFocus();
        }
        pages_->setCurrentIndex(index);
        if (Click) {
            Click(index);
        }
    });
    // Shortcuts, for a list of choices takes every key that has a character, Ctrl+Tab with it.
    const int count = static_cast<int>(tabs.size());
    const std::pair<const char*, int> turns[] = {
        {"Ctrl+Tab", 1}, {"Ctrl+PgDown", 1}, {"Ctrl+Shift+Tab", count - 1}, {"Ctrl+PgUp", count - 1}};
    for (const auto& [keys, step] : turns) {
        auto* turn = new QShortcut(QKeySequence(QLatin1String(keys)), this);
        QObject::connect(turn, &QShortcut::activated, this,
                         [this, count, by = step] { SetTab((CurrentTab() + by) % count); });
    }
    QObject::connect(bar_, &QTabBar::tabBarClicked, this, [this](int index) {
        if (Click && index >= 0 && index == bar_->currentIndex()) {
            Click(index);
        }
    });
}

QWidget* TabStrip::Page(int index) const {
    return pages_->widget(index);
}

int TabStrip::CurrentTab() const {
    return bar_->currentIndex();
}

void TabStrip::SetTab(int index) {
    bar_->setCurrentIndex(index);
}

void TabStrip::paintEvent(QPaintEvent*) {
    QStylePainter painter(this);
    QStyleOptionTabWidgetFrame frame;
    frame.initFrom(this);
    frame.shape = QTabBar::RoundedNorth;
    frame.rect = rect().adjusted(0, kTabHeight - 1, 0, 0);
    frame.tabBarRect = bar_->geometry();
    frame.selectedTabRect = bar_->tabRect(bar_->currentIndex()).translated(bar_->pos());
    frame.tabBarSize = bar_->size();
    frame.lineWidth = style()->pixelMetric(QStyle::PM_DefaultFrameWidth, nullptr, this);
    painter.drawPrimitive(QStyle::PE_FrameTabWidget, frame);
}

void TabStrip::resizeEvent(QResizeEvent*) {
    pages_->setGeometry(rect().adjusted(kFrame, kTabHeight, -kFrame, -kFrame));
    bar_->raise(); // the tab in front lies over the frame's upper edge
}

} // namespace lumrake
