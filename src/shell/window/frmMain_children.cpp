// The children in their area: adoption, which one is active, closing.
//
// The area forgets its active window without a word when another program comes to the front, so the window
// that a command means is kept here: it is the last one that the area told of, until that one closes.

#include "animation/frmAnimation.h"
#include "assistant/rules/help_numbers.h"
#include "controls/message_box.h"
#include "controls/spoken.h"
#include "controls/watch.h"
#include "shell/window/frmMain.h"
#include "shell/window/save_commands.h"
#include "snapshot/frmSnapshot.h"

#include <QAction>
#include <QKeyEvent>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMouseEvent>
#include <QScopedValueRollback>

#include <algorithm>

namespace lumrake {

namespace {
constexpr int kCascadeStep = 26; ///< pixels: a title bar of a child and a little
constexpr int kCascadeShare = 6; ///< the cascade goes down at most this part of the area

/// The frame of a document. A press acts on what lies under it. The toolkit knows that from the last move of the
/// mouse only, and forgets it when a box opens: the next press on the same button of the title would be lost.
class DocumentFrame : public QMdiSubWindow {
  protected:
    void mousePressEvent(QMouseEvent* event) override {
        QMouseEvent move(QEvent::MouseMove, event->position(), event->scenePosition(),
                         event->globalPosition(), Qt::NoButton, Qt::NoButton, event->modifiers());
        mouseMoveEvent(&move);
        QMdiSubWindow::mousePressEvent(event);
    }
    /// Size or Move of its menu may wait for keys still when it is maximised. Moved then, it and the bars of the area
    /// would push each other without an end.
    void keyPressEvent(QKeyEvent* event) override {
        if (isMaximized()) {
            event->ignore();
        } else {
            QMdiSubWindow::keyPressEvent(event);
        }
    }
    /// The area maximises whatever comes in front of a maximised document. What has one size keeps it.
    void changeEvent(QEvent* event) override {
        if (isMaximized() && minimumSize() == maximumSize()) {
            overrideWindowState(windowState() & ~Qt::WindowMaximized);
        } else {
            QMdiSubWindow::changeEvent(event);
        }
    }
};

} // namespace

void frmMain::CreateClient() {
    SetSpoken(mdiClient, {.role = QAccessible::LayeredPane}); // the toolkit's own tells of no assistant
    mdiClient->setActivationOrder(QMdiArea::ActivationHistoryOrder);
    mdiClient->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    mdiClient->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    SetHelp(mdiClient->viewport(), kHelpNone);
    connect(mdiClient, &QMdiArea::subWindowActivated, this, &frmMain::ChildActivated);
}

void frmMain::AdoptChild(DocumentForm* child) {
    auto* frame = new DocumentFrame;
    frame->setWidget(child);
    frame->setAttribute(Qt::WA_DeleteOnClose);
    // The frame's menu belongs to the title bar alone: a second button pressed there while a control holds the mouse
    // is the control's.
    child->setContextMenuPolicy(Qt::PreventContextMenu);
    if (dynamic_cast<frmAnimation*>(child) != nullptr) {
        // It has one size for its zoom, so there is nothing to minimise, maximise or drag.
        frame->setWindowFlags(Qt::SubWindow | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                              Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint);
    }
    mdiClient->addSubWindow(frame, frame->windowFlags());
    frame->hide();
    frame->move(FreePlace());
    // Ctrl+W and Ctrl+F4 of its system menu are keys of the menu bar here; two of a kind work for neither.
    for (QAction* entry : frame->systemMenu()->actions()) {
        entry->setShortcuts(QList<QKeySequence>());
    }
    connect(child, &QWidget::windowTitleChanged, this, &frmMain::ShowCaption);
}

bool frmMain::SaveBeforeClosing(DocumentForm& child) {
    return lumrake::SaveBeforeClosing(child);
}

QPoint frmMain::FreePlace() const {
    // Near the upper left corner, so that a child of the usual size stays inside the area.
    const int places = 1 + mdiClient->viewport()->height() / kCascadeShare / kCascadeStep;
    const auto frames = OpenFrames();
    for (int place = 0; place < places; ++place) {
        const QPoint corner(place * kCascadeStep, place * kCascadeStep);
        if (std::none_of(frames.begin(), frames.end(),
                         [corner](const auto& f) { return f->pos() == corner; })) {
            return corner;
        }
    }
    const int place = static_cast<int>(frames.size()) % places;
    return {place * kCascadeStep, place * kCascadeStep};
}

void frmMain::ChildActivated(QMdiSubWindow* frame) {
    if (frame == nullptr) {
        if (OpenFrames().empty()) {
            activeFrame_.clear();
        }
        return;
    }
    if (frame == activeFrame_) {
        return; // the program came back to the front
    }
    activeFrame_ = frame;
    if (DocumentForm* form = FormIn(*frame)) {
        form->Form_Activate();
    }
}

std::vector<QPointer<QMdiSubWindow>> frmMain::OpenFrames() const {
    std::vector<QPointer<QMdiSubWindow>> frames;
    for (QMdiSubWindow* frame : mdiClient->subWindowList(QMdiArea::CreationOrder)) {
        // A closed one stays in the list until it is deleted, and one that is not launched yet is hidden.
        if (!frame->isHidden()) {
            frames.emplace_back(frame);
        }
    }
    return frames;
}

DocumentForm* frmMain::FormIn(const QMdiSubWindow& frame) {
    return dynamic_cast<DocumentForm*>(frame.widget());
}

DocumentForm* frmMain::ActiveForm() const {
    const QMdiSubWindow* frame = activeFrame_;
    if (frame == nullptr || frame->isHidden()) {
        frame = mdiClient->currentSubWindow();
    }
    return frame == nullptr || frame->isHidden() ? nullptr : FormIn(*frame);
}

frmSnapshot* frmMain::ActiveSnapshot() const {
    return dynamic_cast<frmSnapshot*>(ActiveForm());
}

bool frmMain::CloseChildren(bool changedOnly) {
    if (closing_) {
        return false;
    }
    const QScopedValueRollback closing(closing_, true);
    for (const QPointer<QMdiSubWindow>& frame : OpenFrames()) {
        const DocumentForm* form = frame ? FormIn(*frame) : nullptr;
        const bool closes = frame && (!changedOnly || (form != nullptr && form->Changed() != 0));
        if (closes && !frame->close()) {
            return false;
        }
    }
    return true;
}

void frmMain::menu_closeall_Click(int) {
    if (MsgBox(QStringLiteral("Are you sure?"), BoxButtons::YesNo, BoxIcon::Question,
               QStringLiteral("Close all")) != BoxAnswer::Yes) {
        return;
    }
    for (int left = iSnapshotCount + iAnimationCount; left > 0; --left) {
        // Read anew each time: one that stays is asked again.
        QWidget* active = ActiveForm();
        if (active == nullptr) {
            return;
        }
        ChildFrame(active)->close();
    }
}

} // namespace lumrake
