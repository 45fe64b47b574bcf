#pragma once

#include <QString>
#include <QWidget>

#include <array>
#include <cstdint>

class QLabel;

namespace lumrake {

/// The assistant: Mr Fizzlet, with a speech bubble of one size, in the lower right corner of the main
/// window's area. He lies over the documents, can be dragged about, and is no document himself. What is
/// neither figure nor bubble is not there for the mouse: it reaches whatever lies behind.
///
///     Off ------- Launch ------> Idle (figure alone)
///     Idle ------ SetPrompt, a text; the mouse on the figure ------> Speaking (figure, bubble, tail)
///     Speaking -- SetPrompt, no text; Launch; the mouse beside the label or away ------> Idle
///     Idle, Speaking -- Kill ------> Off
class frmHelp : public QWidget {
  public:
    /// `area` is the main window's area; its scroll bars are none of its inside. Hidden until Launch.
    explicit frmHelp(QWidget* area);

    /// Shows the assistant without his bubble: in the corner when he was off, else where he stands.
    void Launch();
    /// Takes him off the screen and forgets where he was dragged.
    void Kill();
    /// Shows the text in the bubble, or hides the bubble when it is empty. A text too long for it is cut.
    void SetPrompt(const QString& sText);
    /// Puts him into the corner, 100 twips from both edges; beyond the upper left edges of a small area. There he
    /// stays when scroll bars come and go.
    void SetPosition();

  protected:
    bool eventFilter(QObject* control, QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;

  private:
    void Form_Load();
    /// The place in the corner of an area with this inside.
    QPoint CornerOf(const QSize& inner) const;
    void Form_MouseMove();
    void ShowBubble(bool bShow);
    // Button: of a press the one that was pressed, of a move the mask of those held. X, Y: logical pixels
    // from the control's corner.
    void imgFizzlet_MouseDown(Qt::MouseButtons Button, double X, double Y);
    void imgFizzlet_MouseMove(Qt::MouseButtons Button, double X, double Y);
    void lblBubble_MouseDown(Qt::MouseButtons Button, double X, double Y);
    void lblBubble_MouseMove(Qt::MouseButtons Button, double X, double Y);
    void Grab(double X, double Y);
    void Drag(double X, double Y);

    QWidget* inside_;                     ///< the area without its scroll bars
    std::array<QWidget*, 2> imgFizzlet{}; ///< the figure and the tail of the bubble
    QLabel* lblBubble = nullptr;
    QWidget* shpBubble = nullptr;        ///< the bubble and its shadow
    std::int32_t lGrabX = 0, lGrabY = 0; ///< where inside the control a drag began
    bool loaded_ = false;                ///< between Launch and Kill
};

} // namespace lumrake
