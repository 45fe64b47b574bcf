#pragma once

#include "animation/frmAnimSetup.h"
#include "animation/frmAnimation.h"
#include "platform/picture_box.h"
#include "support/forms_support.h"

#include <QApplication>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>

namespace lumrake {

struct AnimationProbe {
    static AnimationRecord& Record(frmAnimation& w) { return w.record; }
    static PlayState& State(frmAnimation& w) { return w.state; }
    static bool Changed(const frmAnimation& w) { return w.bChanged != 0; }
    static bool Playing(const frmAnimation& w) { return w.Timer1.isActive(); }
    static std::size_t Bytes(const frmAnimation& w) { return w.byMemory.size(); }
    static PictureBox& Picture(frmAnimation& w) { return *w.picImage; }
    static QPushButton& Control(frmAnimation& w, std::size_t i) { return *w.cmdControl[i]; }
};

namespace testing {

template <class Control = QWidget> Control* Find(const QWidget& form, const char* name) {
    auto* control = form.findChild<Control*>(QString::fromLatin1(name));
    EXPECT_NE(control, nullptr) << name;
    return control;
}

inline void Type(QWidget& form, const char* field, const QString& text) {
    auto* edit = Find<QLineEdit>(form, field);
    edit->setFocus();
    edit->selectAll();
    QTest::keyClick(edit, Qt::Key_Delete);
    QTest::keyClicks(edit, text);
}

/// Waits for the next modal dialog of type `Dialog` and does `act` with it, once. A dialog that is still open
/// long after it is rejected, and the test fails.
template <class Dialog> class WhenOpen {
  public:
    explicit WhenOpen(std::function<void(Dialog&)> act) {
        QObject::connect(&poll_, &QTimer::timeout, [this, act = std::move(act)] {
            auto* dialog = dynamic_cast<Dialog*>(QApplication::activeModalWidget());
            if (dialog != nullptr && !done_) {
                done_ = true;
                act(*dialog);
            } else if (++polls_ > 2000 && QApplication::activeModalWidget() != nullptr) {
                ADD_FAILURE() << "a dialog stayed open";
                QApplication::activeModalWidget()->close();
            }
        });
        poll_.start(5);
    }
    ~WhenOpen() { EXPECT_TRUE(done_) << "the dialog did not open"; }

  private:
    QTimer poll_;
    int polls_ = 0;
    bool done_ = false;
};

using WhenSetup = WhenOpen<frmAnimSetup>;

inline void Press(QWidget& form, const char* button) {
    Find<QPushButton>(form, button)->click();
}

/// A record of eight frames 16 x 8 over the bytes of `snapshot`.
inline AnimationRecord SampleRecord(const QString& snapshot) {
    AnimationRecord record;
    record.sSnapFile.Set(snapshot.toStdString());
    record.sTitle.Set("Walk");
    record.iWidth = 16;
    record.iLines = 8;
    record.iZoom = 1;
    record.lOffset = 0;
    record.iFrames = 8;
    record.lStep = 16;
    record.iPause = 100;
    record.iRepeat = kContinuous;
    record.lFileLength = 256;
    record.byAttribute = 56;
    return record;
}

} // namespace testing
} // namespace lumrake
