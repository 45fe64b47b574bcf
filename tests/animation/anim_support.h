#pragma once

#include "animation/frmAnimSetup.h"
#include "animation/frmAnimation.h"
#include "controls/picture_box.h"
#include "support/forms_support.h"
#include "support/when_open.h"

namespace lumrake {

struct AnimationProbe {
    frmAnimation& form;
    AnimationRecord& Record() const { return form.record; }
    PlayState& State() const { return form.state; }
    KnownFile& File() const { return form.knownFile; }
    bool Changed() const { return form.bChanged != 0; }
    bool Playing() const { return form.Timer1.isActive(); }
    QTimer& Timer() const { return form.Timer1; }
    std::size_t Bytes() const { return form.byMemory.size(); }
    PictureBox& Picture() const { return *form.picImage; }
    QPushButton& Control(std::size_t i) const { return *form.cmdControl[i]; }
};

namespace testing {

template <class Control = QWidget> Control* Find(const QWidget& form, const char* name) {
    auto* control = form.findChild<Control*>(QString::fromLatin1(name));
    EXPECT_NE(control, nullptr) << name;
    return control;
}

inline void Press(QWidget& form, const char* button) {
    Find<QPushButton>(form, button)->click();
}

inline QLineEdit* Field(const QWidget& form, int index) {
    return Find<QLineEdit>(form, ("txtAnimSetup(" + std::to_string(index) + ")").c_str());
}

using WhenSetup = WhenOpen<frmAnimSetup>;

/// Eight frames of 16 x 8 pixels.
inline AnimationRecord SampleRecord(const QString& snapshot) {
    // clang-format off
    return {.sAnimFile = {}, .sSnapFile = {snapshot.toStdString()}, .sTitle = {"Walk"}, .iWidth = 16, .iLines = 8,
            .iZoom = 1, .iFrames = 8, .lStep = 16, .iPause = 100, .iRepeat = kContinuous, .lFileLength = 256,
            .byAttribute = 56, .sNotes = {}};
    // clang-format on
}

} // namespace testing
} // namespace lumrake
