#pragma once

#include "base/row_hit.h"

#include <QString>
#include <QWidget>

#include <functional>
#include <vector>

namespace lumrake {

/// One panel of a status bar.
struct Panel {
    QString Key; ///< what the form knows it by
    QString Text;
    QString ToolTipText;
    int MinWidth = 0;    ///< logical pixels
    bool Spring = false; ///< takes up the spare width; one panel of a bar
    int LeastWidth = 0;  ///< what it keeps while other panels still have width to give
};

/// A status bar of sunken panels. A text that is too long is shown with dots and never widens the bar. When
/// the bar is narrower than its panels together, the spring panel shrinks to its least width first, then the
/// last panels to theirs; when that is not enough, the last panels go altogether. (The toolkit's own bar has no panels
/// that give way in an order, and its messages lie over them.)
class PanelBar : public QWidget {
  public:
    explicit PanelBar(QWidget* parent = nullptr);

    /// Panels are numbered from 1.
    void AddPanel(const Panel& panel);
    int PanelCount() const { return static_cast<int>(panels_.size()); }
    const Panel& PanelAt(int index) const { return panels_[static_cast<std::size_t>(index - 1)]; }
    void SetText(int index, const QString& text);
    /// Left edge and width in logical pixels of the bar, for its present size.
    int PanelLeft(int index) const;
    int PanelWidth(int index) const;
    /// The panel whose left edge is below x and whose right edge is above it; 0 when there is none.
    int PanelAtX(int x) const { return HitInRow(x, widths_); }

    /// Called with the panel under a press that is released over it.
    std::function<void(int index)> PanelClick;
    std::function<void()> PanelsMoved; ///< after the edges changed

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    bool event(QEvent* event) override;

  private:
    void Arrange();

    std::vector<Panel> panels_;
    std::vector<int> widths_;
    int pressed_ = 0;
};

} // namespace lumrake
