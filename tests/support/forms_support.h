#pragma once

#include "controls/common_dialog.h"
#include "controls/message_box.h"
#include "shell/shell.h"
#include "shell/window/save_commands.h"

#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

#include <algorithm>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <span>
#include <string>
#include <vector>

namespace lumrake::testing {

/// Answers message boxes and file dialogs, records the notices of the windows and starts every test from the
/// default settings in an empty directory of its own. A box or dialog without a prepared answer fails the
/// test.
class Stage : public ShellNotices {
  public:
    Stage();
    ~Stage() override;

    /// What the next message boxes and file dialogs are answered with, in order.
    std::deque<BoxAnswer> answers;
    std::deque<QString> files;
    /// What was asked and said: the boxes as "title|text", the dialogs by their titles.
    std::vector<QString> boxes;
    std::vector<QString> dialogs;
    /// What the windows reported, as "ShowCoords 0 3,4", "EnableFunction 1 0", "UpdateToolbars SNAPSHOT 1"
    std::vector<QString> notices;
    /// How often a notice came since the last call.
    int TakeNotices(const QString& notice);

    QString Path(const QString& name) const { return QDir::toNativeSeparators(directory_.filePath(name)); }
    QString MakeFile(const QString& name, std::span<const std::uint8_t> bytes) const;
    std::vector<std::uint8_t> ReadFile(const QString& name) const;

    QString status; ///< what the main status bar says
    void SetStatusText(const QString& text) override { status = text; }
    void ShowCoords(std::int16_t index, double x, double y) override {
        notices.push_back(u"ShowCoords %1 %2,%3"_qs.arg(index).arg(x).arg(y));
    }
    void EnableFunction(std::int16_t group, bool enable) override {
        notices.push_back(u"EnableFunction %1 %2"_qs.arg(group).arg(enable ? 1 : 0));
    }
    void UpdateToolbars(const QString& kind, bool enable) override {
        notices.push_back(u"UpdateToolbars %1 %2"_qs.arg(kind).arg(enable ? 1 : 0));
    }

    bool SaveBeforeClosing(DocumentForm& child) override { return lumrake::SaveBeforeClosing(child); }

  private:
    QTemporaryDir directory_;
    ShellNotices* before_;
};

/// Waits until this is the active window: only then does the focus move.
void WaitForActive(QWidget& window);
/// The titles of the windows that are open, for the message of a wait in vain.
std::string OpenWindows();

/// Turns the mouse wheel over a control; a notch is 120, positive upwards and to the left.
void TurnWheel(QWidget& over, QPoint angle, Qt::KeyboardModifiers with = {}, Qt::MouseButtons held = {});
/// Chooses the entry of a context menu whose caption begins so.
void FromContextMenu(QLineEdit& edit, const char* entry);
/// What gets the keys: a menu that is open, else what has the focus in this window, else that.
QWidget* KeysGoTo(QWidget& window, QWidget* otherwise = nullptr);
/// Does in a window what `words` say, one by one: "@name" brings a control into sight and gives it the focus; there
/// "click", "right" and "middle" are clicks, keys go by their names, "+Space" and "-Space" are the halves of one and
/// "=Space" is its repeat, "wheel-120" and "side-120" are turns, "shift,wheel-120" one with a key and "held,wheel-120"
/// one with a button, and all else is typed; "tab53" is a click on the tabs, 53 pixels from their left. `names` are of
/// controls that bear none, `actions` are words of the test's own.
void Use(QWidget& form, const QString& words, const std::map<QString, QWidget*>& names = {},
         const std::map<QString, std::function<void()>>& actions = {});

/// `count` bytes that look random and are the same in every run.
std::vector<std::uint8_t> NoiseBytes(std::size_t count, std::uint32_t seed = 1);

} // namespace lumrake::testing
