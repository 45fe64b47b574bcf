#include "assistant/frmHelp.h"

#include "base/numbers.h"
#include "base/twips.h"
#include "controls/drawing_box.h"
#include "controls/spoken.h"

#include <QAbstractScrollArea>
#include <QEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QPalette>

namespace lumrake {

namespace {

constexpr std::int32_t kGap = 100; ///< twips between the assistant and the edges of the area
constexpr double kRounding = 12;   ///< radius of the bubble's corners, pixels

// The bubble has its colours on every desktop: a dark one would make dark text on white light.
constexpr QColor kBubbleColour(255, 255, 255), kShadowColour(64, 64, 64), kTextColour(0, 0, 0);
constexpr QColor kRimColour(154, 154, 154); ///< as the rim of the tail is drawn

constexpr QRect TwipsRect(int left, int top, int width, int height) {
    return {PixelsFromTwips(left), PixelsFromTwips(top), PixelsFromTwips(width), PixelsFromTwips(height)};
}

// Places from the form's corner in twips: left, top, width, height.
// clang-format off
constexpr QRect kForm   = TwipsRect(   0,    0, 3750, 3360);
constexpr QRect kFigure = TwipsRect(3100, 2280,  600, 1065);
constexpr QRect kTail   = TwipsRect(2280, 2030,  975,  390);
constexpr QRect kLabel  = TwipsRect( 360,  360, 3015, 1455);
constexpr QRect kBubble = TwipsRect( 120,  120, 3495, 1935);
constexpr QRect kShadow = TwipsRect( 200,  200, 3495, 1935);
// clang-format on

/// The bubble and its shadow. A widget of its own, for hiding it repaints all that lies behind; the toolkit
/// leaves the documents as they are where a mask shrinks over them.
class BubbleShape : public QWidget {
  public:
    explicit BubbleShape(QWidget* form) : QWidget(form) {
        setGeometry(kBubble.united(kShadow));
        setAttribute(Qt::WA_TransparentForMouseEvents);
    }

  protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.translate(-pos()); // the places are the form's
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(kShadowColour);
        painter.drawRoundedRect(kShadow, kRounding, kRounding);
        painter.setPen(kRimColour);
        painter.setBrush(kBubbleColour);
        // A pen of one pixel lies on the middle of the outermost pixels.
        painter.drawRoundedRect(QRectF(kBubble).adjusted(0.5, 0.5, -0.5, -0.5), kRounding, kRounding);
    }
};

} // namespace

frmHelp::frmHelp(QWidget* area) : QWidget(area), inside_(area) {
    if (const auto* scrolled = qobject_cast<QAbstractScrollArea*>(area)) {
        inside_ = scrolled->viewport();
    }
    inside_->installEventFilter(this);
    hide(); // a child made after its parent was shown is hidden anyway, one made before is not
    setObjectName(QStringLiteral("frmHelp"));
    setFixedSize(kForm.size());
    setMouseTracking(true);

    shpBubble = new BubbleShape(this); // behind the others
    lblBubble = new QLabel(QStringLiteral("Hello my little cherub, how can I help you?"), this);
    SetSpoken(lblBubble, {.role = QAccessible::AlertMessage, .name = [this] { return lblBubble->text(); }});
    lblBubble->setObjectName(QStringLiteral("lblBubble"));
    lblBubble->setGeometry(kLabel);
    lblBubble->setTextFormat(Qt::PlainText);
    lblBubble->setWordWrap(true);
    lblBubble->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    QPalette colours = lblBubble->palette();
    colours.setColor(QPalette::WindowText, kTextColour);
    lblBubble->setPalette(colours);

    imgFizzlet[0] = new DrawingBox(QStringLiteral("assistant/figure.svg"), kFigure.size(), this);
    imgFizzlet[0]->move(kFigure.topLeft());
    imgFizzlet[1] = new DrawingBox(QStringLiteral("assistant/tail.svg"), kTail.size(), this);
    imgFizzlet[1]->move(kTail.topLeft());
    for (std::size_t index = 0; index < imgFizzlet.size(); ++index) {
        imgFizzlet[index]->setObjectName(QStringLiteral("imgFizzlet%1").arg(index));
    }
    for (QWidget* control : {imgFizzlet[0], imgFizzlet[1], static_cast<QWidget*>(lblBubble)}) {
        control->setMouseTracking(true);
        control->installEventFilter(this);
    }
    ShowBubble(false);
}

void frmHelp::Form_Load() {
    loaded_ = true;
    SetPosition();
}

void frmHelp::Launch() {
    if (!loaded_) {
        Form_Load();
    }
    ShowBubble(false);
    raise();
    show();
}

void frmHelp::Kill() {
    hide();
    loaded_ = false;
}

void frmHelp::SetPrompt(const QString& sText) {
    const bool bOther = !lblBubble->isHidden() && !sText.isEmpty() && sText != lblBubble->text();
    if (!sText.isEmpty()) {
        lblBubble->setText(sText);
    }
    ShowBubble(!sText.isEmpty());
    if (bOther) { // a bubble that comes up is read out anyway
        Announce(lblBubble);
    }
}

void frmHelp::ShowBubble(bool bShow) {
    shpBubble->setVisible(bShow);
    lblBubble->setVisible(bShow);
    imgFizzlet[1]->setVisible(bShow);
    QRegion shape(kFigure);
    if (bShow) {
        shape += QRegion(kBubble) + kShadow + kTail;
    }
    if (shape != mask()) { // a prompt comes with every move of the mouse, seldom a change
        if (!bShow) {
            repaint(); // without the bubble, before the mask ends the form there and nobody paints that place
        }
        setMask(shape);
    }
}

QPoint frmHelp::CornerOf(const QSize& inner) const {
    return {PixelsFromTwips(TwipsFromPixels(inner.width() - width()) - kGap),
            PixelsFromTwips(TwipsFromPixels(inner.height() - height()) - kGap)};
}

void frmHelp::SetPosition() {
    move(CornerOf(inside_->size()));
}

void frmHelp::Form_MouseMove() {
    ShowBubble(false);
}

void frmHelp::imgFizzlet_MouseDown(Qt::MouseButtons Button, double X, double Y) {
    if (Button == Qt::LeftButton) {
        Grab(X, Y);
        imgFizzlet_MouseMove(Button, X, Y);
    }
}

void frmHelp::imgFizzlet_MouseMove(Qt::MouseButtons Button, double X, double Y) {
    if (Button.testFlag(Qt::LeftButton)) {
        Drag(X, Y);
    }
    SetPrompt(QStringLiteral(
        "Hello, I'm Mr Fizzlet. I'm here to help you find your way around LMK. You can turn me off by "
        "de-selecting my option from the Help menu."));
}

void frmHelp::lblBubble_MouseDown(Qt::MouseButtons Button, double X, double Y) {
    if (Button == Qt::LeftButton) {
        Grab(X, Y);
        lblBubble_MouseMove(Button, X, Y);
    }
}

void frmHelp::lblBubble_MouseMove(Qt::MouseButtons Button, double X, double Y) {
    if (Button.testFlag(Qt::LeftButton)) {
        Drag(X, Y);
    }
}

void frmHelp::Grab(double X, double Y) {
    lGrabX = HeldTo<std::int32_t>(X);
    lGrabY = HeldTo<std::int32_t>(Y);
}

void frmHelp::Drag(double X, double Y) {
    // The control goes with the form, so the point that was grabbed stays under the mouse.
    move(HeldTo<std::int32_t>(X - lGrabX + x()), HeldTo<std::int32_t>(Y - lGrabY + y()));
}

bool frmHelp::eventFilter(QObject* control, QEvent* event) {
    const QEvent::Type type = event->type();
    if (control == inside_) {
        if (type == QEvent::Resize && pos() == CornerOf(static_cast<QResizeEvent*>(event)->oldSize())) {
            SetPosition();
        }
        return false;
    }
    const bool down = type == QEvent::MouseButtonPress || type == QEvent::MouseButtonDblClick;
    if (!down && type != QEvent::MouseMove && type != QEvent::MouseButtonRelease) {
        return QWidget::eventFilter(control, event);
    }
    const auto& mouse = static_cast<const QMouseEvent&>(*event);
    const double X = mouse.position().x(), Y = mouse.position().y();
    if (down) {
        control == lblBubble ? lblBubble_MouseDown(mouse.button(), X, Y)
                             : imgFizzlet_MouseDown(mouse.button(), X, Y);
    } else if (type == QEvent::MouseMove) {
        control == lblBubble ? lblBubble_MouseMove(mouse.buttons(), X, Y)
                             : imgFizzlet_MouseMove(mouse.buttons(), X, Y);
    }
    return true; // what a control was given does not reach the form behind it
}

void frmHelp::mousePressEvent(QMouseEvent* event) {
    event->accept(); // nor what lies behind the bubble
}

void frmHelp::mouseMoveEvent(QMouseEvent*) {
    Form_MouseMove();
}

void frmHelp::leaveEvent(QEvent*) {
    Form_MouseMove(); // beside the figure the mask ends the form, and no move would tell of it
}

} // namespace lumrake
