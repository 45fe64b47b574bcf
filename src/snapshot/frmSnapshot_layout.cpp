// Controls, their places, zoom, status bar, activation.
#include "assistant/rules/help_numbers.h"
#include "base/twips.h"
#include "controls/colour_button.h"
#include "controls/panel_bar.h"
#include "controls/spin_bar.h"
#include "controls/spoken.h"
#include "controls/value_box.h"
#include "controls/watch.h"
#include "controls/whole_pixels.h"
#include "disk/texts.h"
#include "shell/shell.h"
#include "snapshot/frmSnapshot.h"
#include "snapshot/rules/navigation.h"
#include "snapshot/rules/view_limits.h"

#include <QCursor>
#include <QLabel>
#include <QPainter>
#include <QProgressBar>
#include <QPushButton>

namespace lumrake {

namespace {

// Sizes of the outermost window in twips, all others in logical pixels of the form.
constexpr std::int32_t kStartWidth = 5850, kStartHeight = 4410;
constexpr std::int32_t kLeastWidth = 4000, kLeastHeight = 3900;

constexpr int kEdge = 8;              // left of and above the picture's container
constexpr int kBesideContainer = 122; // the column of controls right of it, with the edge at the left
constexpr int kBelowContainer = 38;
constexpr int kBarWidth = 17;
constexpr int kBoxWidth = 49, kBoxHeight = 19, kSpinWidth = 25, kSpinLeft = 51;
constexpr int kStatusHeight = 18;

/// A value box with its label and spin button. `digits` is how many can be typed.
struct ValueRow {
    const char* caption;
    const char* toolTip;
    const char* steps; // accessible name of the spin button
    int labelTop, boxTop, digits, help;
};
// clang-format off
constexpr ValueRow kValueRows[] = {
    // caption   tool tip                                  steps            label  box  digits  help
    {"Offset",  "Current file offset",                     "Offset steps",      8,  24,      6,   kHelpFirstValue},
    {"Width",   "Current viewing width in pixels",         "Width steps",      48,  64,      3,   kHelpFirstValue + 1},
    {"Lines",   "Current number of lines viewed in pixels","Lines steps",      88, 104,      3,   kHelpFirstValue + 2},
    {"Columns", "Current number of columns",               "Columns steps",   128, 144,      2,   kHelpFirstValue + 3},
};

const Panel kStatusPanels[] = {
    // key                        text  tool tip                                                              width spring least
    {QStringLiteral("FILENAME"),  {}, QStringLiteral("Full path of snapshot file"),                             363, true,    0},
    {QStringLiteral("BYTES"),     {}, QStringLiteral("Size of snapshot file"),                                  141, false, 118},
    {QStringLiteral("ZOOM"),      {}, QStringLiteral("Current zoom.  Click here to adjust."),                    53, false,  32},
    {QStringLiteral("ATTRIBUTE"), {}, QStringLiteral("Current attribute settings.  Click here to adjust."),      71, false,  42},
};
// clang-format on

constexpr int kZoomPanel = 3, kAttributePanel = 4;

void PaintGround(QWidget* control, const QColor& colour) {
    QPalette palette = control->palette();
    palette.setColor(QPalette::Window, colour);
    control->setPalette(palette);
    control->setAutoFillBackground(true);
}

} // namespace

// The controls come into being in the order of the Tab key.
void frmSnapshot::CreateControls() {
    setWindowTitle(QStringLiteral("snapshot..."));
    SetHelp(this, kHelpNone);
    CreateValueBoxes();

    cmdOptions = new QPushButton(QStringLiteral("&Options"), this);
    cmdOptions->setAutoDefault(false);
    cmdOptions->resize(76, 22);
    connect(cmdOptions, &QPushButton::clicked, this, [this] { cmdOptions_Click(); });
    SetHelp(cmdOptions, kHelpOptions);

    picContainer = new QWidget(this);
    picContainer->move(kEdge, kEdge);
    SetHelp(picContainer, kHelpNone);
    PaintGround(picContainer, QColor(0, 128, 128));
    picImage = new PictureBox(picContainer);
    picImage->setFocusPolicy(Qt::StrongFocus);
    ConnectSpeech();
    picImage->setAccessibleName(QStringLiteral("Picture"));
    SetSpoken(picContainer, {.role = QAccessible::Pane});
    picContainer->setAccessibleName(QStringLiteral("Ground of the picture"));
    picContainer->setFocusPolicy(Qt::StrongFocus);
    imgClip = new ImageBox(picImage);
    imgClip->setAccessibleName(QStringLiteral("Block"));
    imgClip->setGeometry(8, 8, 65, 65);
    imgClip->hide();

    scrAddr = new SpinBar(Qt::Vertical, this);
    scrAddr->setAccessibleName(QStringLiteral("Place in the file"));
    scrAddr->setRange(0, 230);
    scrAddr->setPageStep(2);
    txtScroll = new QWidget(this);
    PaintGround(txtScroll, QColor(224, 224, 224));
    SetHelp(txtScroll, kHelpThumb);
    cmdScroll = new QPushButton(this);
    cmdScroll->setAutoDefault(false);
    cmdScroll->setAccessibleName(QStringLiteral("Thumb of the place in the file"));
    cmdScroll->resize(kBarWidth, kThumbHeight);

    CreateStatusBar();
    ConnectNavigation();
    ConnectTools();
    ConnectKeys();
}

void frmSnapshot::CreateValueBoxes() {
    for (std::size_t i = 0; i < txtValue.size(); ++i) {
        const ValueRow& row = kValueRows[i];
        auto* box = txtValue[i] = new ValueBox(row.digits, this);
        box->resize(kBoxWidth, kBoxHeight);
        box->setToolTip(Latin(row.toolTip));
        box->setAccessibleName(Latin(row.caption));
        SetHelp(box, row.help, kOnMove | kDisabledAsWell);

        auto* spin = scrValue[i] = new SpinBar(Qt::Horizontal, this);
        spin->resize(kSpinWidth, kBoxHeight);
        spin->setRange(0, 10);
        spin->setPageStep(1);
        spin->setValue(5);
        spin->setAccessibleName(Latin(row.steps));
        SetHelp(spin, kHelpNone, kDisabledAsWell); // it says nothing, nor does the form for it

        auto* label = lblCaption[i] = new QLabel(Latin(row.caption), this);
        label->resize(73, 17);
        label->lower(); // its lowest row lies under the box
        label->setBuddy(box);
        SetHelp(label, kHelpNone, kOnRelease);
    }
}

void frmSnapshot::CreateStatusBar() {
    sbrSnapshot = new PanelBar(this);
    for (const Panel& panel : kStatusPanels) {
        sbrSnapshot->AddPanel(panel);
    }
    sbrSnapshot->PanelClick = [this](int Panel) { sbrSnapshot_PanelClick(Panel); };
    Watcher& bar = Watch(sbrSnapshot);
    bar.speaksOn = kDisabledAsWell; // between two panels it says nothing, nor does the form for it
    bar.MouseDown = [this](const MouseArgs& args) { iPanelButton = args.Button; };
    bar.MouseMove = [this](const MouseArgs& args) {
        if (const int panel = sbrSnapshot->PanelAtX(static_cast<int>(args.X)); panel != 0) {
            Shell().ShowPrompt(kHelpFirstPanel - 1 + panel);
        }
    };
    sbrSnapshot->PanelsMoved = [this] { PlaceColourButtons(); };

    const char* const names[] = {"Ink", "Paper"};
    for (std::size_t i = 0; i < cmdColour.size(); ++i) {
        auto* button = cmdColour[i] = new ColourButton(this);
        button->resize(18, 14);
        button->setAccessibleName(Latin(names[i]));
        button->setToolTip(QStringLiteral("Current attribute setting.  Click here to adjust."));
        connect(button, &QToolButton::clicked, this, [this, i] { cmdColour_Click(static_cast<int>(i)); });
        SetHelp(button, kHelpAttributePanel);
    }

    barProgress = new QProgressBar(this);
    barProgress->setRange(0, 100);
    barProgress->setTextVisible(false);
    barProgress->setAccessibleName(QStringLiteral("Progress"));
    barProgress->hide();
}

void frmSnapshot::Form_Load() {
    CreateControls();
    Shell().AdoptChild(this);
    QWidget* frame = ChildFrame(this);
    frame->setMinimumSize(PixelsFromTwips(kLeastWidth), PixelsFromTwips(kLeastHeight));
    frame->resize(PixelsFromTwips(kStartWidth), PixelsFromTwips(kStartHeight));

    const std::array<ValueLimits, 4> limits = SpinLimits(view.lFileLength);
    for (std::size_t i = 0; i < limits.size(); ++i) {
        lValueMin[i] = limits[i].lMin;
        lValueMax[i] = limits[i].lMax;
        lValueStep[i] = limits[i].lStep;
    }
    Form_Resize(); // a window that is not shown yet gets no event for its size
    Form_Activate();
}

void frmSnapshot::Form_Activate() {
    barProgress->setValue(100);
    Shell().SetStatusText(CaptionOf(this));
    FillValueBoxes();
    Shell().UpdateToolbars(QStringLiteral("SNAPSHOT"), true);
    Shell().UpdateToolbars(QStringLiteral("ANIMATION"), false);
    Shell().ShowModeTick(view.iMode);
    Shell().ShowFlipTick(view.iUpsideDown == 1);
    Shell().EnableNetCommands(shpNet.IsSelection());
    // A box that gets the focus with its window is selected as by any other move to it.
    if (auto* box = dynamic_cast<ValueBox*>(focusWidget())) {
        box->selectAll();
    }
}

void frmSnapshot::FillValueBoxes() {
    const std::int32_t values[] = {view.lOffset, view.iWidth, view.iLines, view.iColumns};
    for (std::size_t i = 0; i < txtValue.size(); ++i) {
        txtValue[i]->Write(QString::number(values[i]));
    }
}

void frmSnapshot::Form_Resize() {
    if (ChildFrame(this)->isMinimized()) {
        return;
    }
    const int W = width(), H = height();
    const int containerWidth = W - kBesideContainer, barHeight = H - kBelowContainer;
    picContainer->resize(containerWidth, barHeight);
    const int barLeft = containerWidth + kEdge + 4;
    scrAddr->setGeometry(barLeft, kEdge, kBarWidth, barHeight);
    scrAddr->setMaximum(barHeight - 2 * kArrowHeight - kThumbHeight + 1);
    txtScroll->setGeometry(barLeft, kEdge + kArrowHeight, kBarWidth, barHeight - 2 * kArrowHeight);
    cmdScroll->move(barLeft, cmdScroll->y());

    const int boxLeft = containerWidth + 39;
    for (std::size_t i = 0; i < txtValue.size(); ++i) {
        txtValue[i]->move(boxLeft, kValueRows[i].boxTop);
        scrValue[i]->move(boxLeft + kSpinLeft, kValueRows[i].boxTop);
        lblCaption[i]->move(boxLeft, kValueRows[i].labelTop);
    }
    cmdOptions->move(boxLeft, barHeight - 14);
    sbrSnapshot->setGeometry(0, H - kStatusHeight, W, kStatusHeight);
    PlaceColourButtons();
    PlaceScrollThumb();
    update();
}

void frmSnapshot::PlaceColourButtons() {
    if (cmdColour[1] == nullptr) {
        return; // the bar reports its first panels before the buttons exist
    }
    const int left = sbrSnapshot->PanelLeft(kAttributePanel);
    cmdColour[0]->move(left + 2, height() - 15);
    cmdColour[1]->move(left + 20, height() - 15);
}

void frmSnapshot::resizeEvent(QResizeEvent*) {
    if (barProgress != nullptr) {
        Form_Resize();
    }
}

void frmSnapshot::paintEvent(QPaintEvent* event) {
    if (cmdOptions != nullptr && event->rect().intersects(ByteLinesPlace())) {
        QPainter painter(this);
        PaintByteLines(painter);
    }
    if (picImage != nullptr && (picImage->hasFocus() || picContainer->hasFocus())) {
        QPainter painter(this);
        const QBrush brush(palette().color(QPalette::Highlight),
                           picImage->hasFocus() ? Qt::SolidPattern : Qt::Dense4Pattern);
        FillFrame(painter, picContainer->geometry().adjusted(-3, -3, 3, 3), 2, brush);
    }
}

void frmSnapshot::SetZoom(std::int16_t NewZoom) {
    const int iOldFactor = view.iZoomFactor;
    if (const int iFactor = lmk::ZoomIndexToFactor(NewZoom); iFactor != 0) {
        view.iZoom = NewZoom;
        view.iZoomFactor = static_cast<std::int16_t>(iFactor);
    }
    ScaleNet(iOldFactor);
    sbrSnapshot->SetText(kZoomPanel, QStringLiteral("%1x").arg(view.iZoomFactor));
    ShowMem();
}

void frmSnapshot::SetPosition(std::int32_t iLeft, std::int32_t iTop) {
    picImage->move(iLeft, iTop);
    ShowCell();
}

void frmSnapshot::sbrSnapshot_PanelClick(int Panel) {
    if (sbrSnapshot->PanelAt(Panel).Key != QLatin1String("ZOOM")) {
        return;
    }
    std::int16_t iZoom = view.iZoom;
    if (iPanelButton == 1 && iZoom < lmk::kMostZoom) {
        ++iZoom;
    } else if (iPanelButton == 2 && iZoom > 1) {
        --iZoom;
    }
    SetZoom(iZoom);
}

void frmSnapshot::cmdOptions_Click() {
    // At the mouse; a key that pressed the button finds the menu at the button.
    const bool bByMouse = cmdOptions->rect().contains(cmdOptions->mapFromGlobal(QCursor::pos()));
    Shell().PopupSnapshotMenu(bByMouse ? QCursor::pos()
                                       : cmdOptions->mapToGlobal(cmdOptions->rect().bottomLeft()));
}

} // namespace lumrake
