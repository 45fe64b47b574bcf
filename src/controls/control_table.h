#pragma once

#include "controls/control_array.h"

#include <QString>
#include <QWidget>

#include <cstddef>
#include <cstdint>
#include <span>

namespace lumrake {

class TabStrip;

/// One control of a dialog. The rows of a dialog stand in the order of the Tab key, but that what lies inside a frame
/// comes after the frame.
struct ControlRow {
    QWidget* (*make)(QWidget* parent); ///< New<QLabel>
    const char* array;                 ///< name of the control, or of the array that it is part of
    int index;                         ///< in the array; kAlone for a control that is in none
    /// A control of a row before, a page of the tab strip by its number, or "" for the form.
    const char* inside;
    int x, y, w, h; ///< logical pixels of what it lies in
    /// Its face. A name ending in .svg is a drawing, on a button of 16 by 16 pixels. A control without a face of its own
    /// lends it to screen readers.
    const char* caption;
    const char* toolTip; ///< a button with a drawing lends it, or else its status, to screen readers
    const char* tag;     ///< what the form's procedures know it by
    std::int32_t help;
    unsigned speaksOn;       ///< SpeaksOn; 0 hands the mouse on to what lies under it
    int limit = 0;           ///< most characters that can be typed into a text box
    const char* status = ""; ///< what the status bar says while the control has the focus
};

inline constexpr int kAlone = -1;

template <class Control> QWidget* New(QWidget* parent) {
    return new Control(parent);
}

/// Makes the controls of a dialog. They bear their names as object names, "txtDefault(2)", and their tags as the
/// property "Tag".
void CreateControls(QWidget& form, const TabStrip* pages, std::span<const ControlRow> rows);

/// The object name of a control.
QString ControlName(const char* array, int index);
/// What the table says of a control as its tag.
QString TagOf(const QObject* control);

/// The control of this name; it is there and of this class.
template <class Control> Control* Find(const QWidget& form, const char* array, int index = kAlone) {
    return static_cast<Control*>(form.findChild<QWidget*>(ControlName(array, index)));
}

/// Takes up the controls of an array; null where the array has a gap.
template <class Control, std::size_t N>
void Bind(const QWidget& form, const char* array, ControlArray<Control, N>& controls) {
    for (std::size_t i = 0; i < N; ++i) {
        controls[i] = Find<Control>(form, array, static_cast<int>(i));
    }
}

/// The same, and connects a signal of each of them to a procedure of the form that takes the index.
template <class Form, class Control, std::size_t N, class Signal>
void Connect(Form* form, const ControlArray<Control, N>& controls, Signal signal,
             void (Form::*procedure)(int)) {
    for (std::size_t i = 0; i < N; ++i) {
        if (controls[i] != nullptr) {
            QObject::connect(controls[i], signal, form,
                             [form, procedure, i] { (form->*procedure)(static_cast<int>(i)); });
        }
    }
}

} // namespace lumrake
