#include "support/forms_support.h"

#include "disk/recovery_run.h"

#include <QApplication>
#include <QInputMethodEvent>
#include <QMenu>
#include <QRegularExpression>
#include <QWheelEvent>

#include <random>

namespace lumrake::testing {

Stage::Stage() : before_(SetShellNotices(this)) {
    SetProgramDirectory(directory_.path());
    qputenv("XDG_STATE_HOME", QFile::encodeName(directory_.path()));
    SetDefaultSettings(Settings, "2.00", {});
    iCurrentTool = kToolDraw;
    SetMessageBoxAnswerer([this](const MessageBox& box) {
        boxes.push_back(box.title + QLatin1Char('|') + box.text);
        if (answers.empty()) {
            EXPECT_EQ(box.buttons, BoxButtons::Ok) << "unexpected: " << box.text.toStdString();
            return box.buttons == BoxButtons::Ok ? BoxAnswer::Ok : BoxAnswer::No;
        }
        const BoxAnswer answer = answers.front();
        answers.pop_front();
        return answer;
    });
    SetFileDialogAnswerer([this](CommonDialog::Kind, const CommonDialog& dialog) {
        dialogs.push_back(dialog.DialogTitle);
        EXPECT_FALSE(files.empty()) << "unexpected: " << dialog.DialogTitle.toStdString();
        const QString file = files.empty() ? QString() : files.front();
        files.erase(files.begin(), files.begin() + (files.empty() ? 0 : 1));
        return file;
    });
}

Stage::~Stage() {
    SetShellNotices(before_);
    SetMessageBoxAnswerer({});
    SetFileDialogAnswerer({});
    SetProgramDirectory(QString());
    EndRecoveryRun();
}

int Stage::TakeNotices(const QString& notice) {
    const auto count = std::count(notices.begin(), notices.end(), notice);
    notices.clear();
    return static_cast<int>(count);
}

QString Stage::MakeFile(const QString& name, std::span<const std::uint8_t> bytes) const {
    QFile file(Path(name));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(reinterpret_cast<const char*>(bytes.data()), static_cast<qint64>(bytes.size()));
    return Path(name);
}

std::vector<std::uint8_t> Stage::ReadFile(const QString& name) const {
    QFile file(Path(name));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name.toStdString();
    const QByteArray bytes = file.readAll();
    return {bytes.begin(), bytes.end()};
}

void WaitForActive(QWidget& window) {
    // A window counts as active for the toolkit when its parent is; the focus does not move then.
    EXPECT_TRUE(QTest::qWaitFor([&window] { return QApplication::activeWindow() == window.window(); }, 20000))
        << '"' << window.windowTitle().toStdString() << "\" is not the active one of" << OpenWindows();
}

std::string OpenWindows() {
    std::string titles;
    for (const QWidget* window : QApplication::topLevelWidgets()) {
        if (window->isVisible()) {
            titles += " \"" + window->windowTitle().toStdString() + '"';
            titles += window == QApplication::activeModalWidget() ? " (modal)" : "";
            titles += window->isActiveWindow() ? " (active)" : "";
        }
    }
    return titles.empty() ? " no window" : titles;
}

void FromContextMenu(QLineEdit& edit, const char* entry) {
    const std::unique_ptr<QMenu> menu(edit.createStandardContextMenu());
    for (QAction* action : menu->actions()) {
        action->text().startsWith(QLatin1String(entry)) ? action->trigger() : void();
    }
}

void TurnWheel(QWidget& over, QPoint angle, Qt::KeyboardModifiers with, Qt::MouseButtons held) {
    const QPointF place(4, 4);
    QWheelEvent turn(place, over.mapToGlobal(place), {}, angle, held, with, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&over, &turn);
}

QWidget* KeysGoTo(QWidget& window, QWidget* otherwise) {
    QWidget *popup = QApplication::activePopupWidget(), *focus = QApplication::focusWidget();
    const bool here = focus != nullptr && focus->window() == window.window();
    return popup != nullptr ? popup : here ? focus : otherwise != nullptr ? otherwise : &window;
}

void Use(QWidget& form, const QString& words, const std::map<QString, QWidget*>& names,
         const std::map<QString, std::function<void()>>& actions) {
    const std::map<QString, Qt::MouseButton> clicks{
        {u"click"_qs, Qt::LeftButton}, {u"right"_qs, Qt::RightButton}, {u"middle"_qs, Qt::MiddleButton}};
    static const QRegularExpression turn(u"^(?:(.*),)?(wheel|side)(-?[0-9]+)$"_qs);
    QWidget* control = KeysGoTo(form, form.focusWidget());
    for (const QString& word : words.split(u' ', Qt::SkipEmptyParts)) {
        const bool isHalf = word.size() > 1 && u"+-="_qs.contains(word[0]);
        const QKeyCombination key = QKeySequence(isHalf ? word.mid(1) : word)[0];
        if (word[0] == u'@') {
            const auto named = names.find(word.mid(1));
            control = named != names.end() ? named->second : form.findChild<QWidget*>(word.mid(1));
            for (int page = 1; page < 4 && !control->isVisible(); ++page) {
                QTest::keyClick(&form, Qt::Key_PageDown, Qt::ControlModifier);
            }
            control->setFocus();
        } else if (actions.contains(word)) {
            actions.at(word)();
        } else if (clicks.contains(word)) {
            QTest::mouseClick(control, clicks.at(word), {},
                              {8, 8}); // an option is only as wide as its caption
        } else if (word.startsWith(u"tab"_qs)) {
            const QPoint at = form.findChild<QWidget*>(u"SSTab1"_qs)->pos() + QPoint(word.mid(3).toInt(), 9);
            QTest::mouseClick(form.childAt(at), Qt::LeftButton, {}, form.childAt(at)->mapFrom(&form, at));
        } else if (const auto turned = turn.match(word); turned.hasMatch()) {
            const QString with = turned.captured(1);
            Qt::KeyboardModifiers keys;
            keys.setFlag(Qt::ShiftModifier, with.contains(u"shift"_qs));
            keys.setFlag(Qt::ControlModifier, with.contains(u"ctrl"_qs));
            const QPoint angle(0, turned.captured(3).toInt());
            TurnWheel(*control, turned.captured(2) == u"side"_qs ? angle.transposed() : angle, keys,
                      with.contains(u"held"_qs) ? Qt::LeftButton : Qt::NoButton);
        } else if (isHalf && key.key() != Qt::Key_unknown) {
            QKeyEvent half(word[0] == u'-' ? QEvent::KeyRelease : QEvent::KeyPress, key.key(),
                           key.keyboardModifiers(), {}, word[0] == u'=');
            QCoreApplication::sendEvent(control, &half);
        } else if (key.key() != Qt::Key_unknown) {
            QTest::keySequence(KeysGoTo(form, control), QKeySequence(word));
        } else if (word.toUtf8().size() == word.size()) {
            QTest::keyClicks(control, word);
        } else { // no key of the test's has such a character
            QInputMethodEvent typed;
            typed.setCommitString(word);
            QCoreApplication::sendEvent(control, &typed);
        }
    }
}

std::vector<std::uint8_t> NoiseBytes(std::size_t count, std::uint32_t seed) {
    std::mt19937 random(seed);
    std::vector<std::uint8_t> bytes(count);
    std::generate(bytes.begin(), bytes.end(), [&random] { return static_cast<std::uint8_t>(random()); });
    return bytes;
}

} // namespace lumrake::testing
