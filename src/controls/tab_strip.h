#pragma once

#include <QString>
#include <QWidget>

#include <functional>
#include <vector>

class QStackedWidget;

namespace lumrake {

class FixedTabBar;

/// One tab: the caption and where its face stands, in logical pixels from the strip's left edge. Tabs are
/// given from left to right and do not overlap.
struct Tab {
    QString Caption;
    int Left = 0;
    int Width = 0;
    std::int32_t help = 0; ///< what the mouse hears over it, from Left on and in the middle rows,
    int HelpWidth = 0;     ///< so far to the right; 0 elsewhere and over bare places of a page
};

/// Pages behind a row of tabs at fixed places, so that what stands for a tab under the mouse can be worked
/// out from numbers and does not hang on the width of a font. A gap between two tabs belongs to the left one.
/// A single tab takes no focus. Ctrl+Tab, Ctrl+PageDown and their opposites turn the pages from anywhere in
/// the window.
class TabStrip : public QWidget {
  public:
    static constexpr int kTabHeight = 21; ///< rows 0 to 20 are tabs, the pages begin below

    explicit TabStrip(const std::vector<Tab>& tabs, QWidget* parent = nullptr);

    /// The page of tab `index`, counted from 0: an empty widget to put controls on. Positions on it count
    /// from the corner inside the frame.
    QWidget* Page(int index) const;
    int CurrentTab() const;
    /// Brings a page to the front; runs Click when it was not there already.
    void SetTab(int index);

    /// A page came to the front, or the user pressed the tab of the one that already is.
    std::function<void(int index)> Click;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    FixedTabBar* bar_;
    QStackedWidget* pages_;
};

} // namespace lumrake
