#include "shell/shell.h"

#include "controls/message_box.h"
#include "controls/watch.h"
#include "disk/files.h"
#include "disk/folders.h"
#include "disk/save_file.h"

#include <QCoreApplication>
#include <QDir>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QStandardPaths>

#include <algorithm>
#include <utility>

namespace lumrake {

SettingsRecord Settings;
std::int16_t bSkipSplash = 0;
std::int16_t iSnapshotCount = 0;
std::int16_t iAnimationCount = 0;
std::int16_t iCurrentTool = kToolDraw;

namespace {

ShellNotices nobody; // lets every notice fall away
ShellNotices* registered = &nobody;

QString replacedDirectory;  // by a test; empty: none
QString directoryOfTheUser; // where the settings lie; empty: in the program's directory

} // namespace

void ShellNotices::EnableNetCommands(bool bEnable) {
    for (const FunctionGroup iGroup : {kGroupCut, kGroupCopy, kGroupDelete, kGroupExportSelection}) {
        EnableFunction(iGroup, bEnable);
    }
}

ShellNotices* SetShellNotices(ShellNotices* notices) {
    SetHelpReceiver([](std::int32_t lNumber) { Shell().ShowPrompt(lNumber); });
    return std::exchange(registered, notices != nullptr ? notices : &nobody);
}

ShellNotices& Shell() {
    return *registered;
}

QWidget* ChildFrame(QWidget* child) {
    auto* frame = qobject_cast<QMdiSubWindow*>(child->parentWidget());
    return frame != nullptr ? frame : child;
}

void SetCaption(QWidget* child, const QString& sCaption) {
    // The toolkit reads "[*]" as its own mark; doubled, it is shown as it stands.
    const QString sShown = QString(sCaption).replace(QLatin1String("[*]"), QLatin1String("[*][*]"));
    child->setWindowTitle(sShown);
    ChildFrame(child)->setWindowTitle(sShown); // by itself it follows its child to no empty title
}

QString CaptionOf(const QWidget* child) {
    return child->windowTitle().replace(QLatin1String("[*][*]"), QLatin1String("[*]"));
}

void BringToFront(QWidget* child) {
    auto* frame = qobject_cast<QMdiSubWindow*>(ChildFrame(child));
    if (frame != nullptr && frame->mdiArea() != nullptr) {
        frame->mdiArea()->setActiveSubWindow(frame);
    }
}

Colour AttributeColour(std::int16_t iAttribute, std::string_view sWhich) {
    return AttributeColour(Settings, iAttribute, sWhich);
}

QString ProgramDirectory() {
    return replacedDirectory.isEmpty() ? QCoreApplication::applicationDirPath() : replacedDirectory;
}

void SetProgramDirectory(const QString& directory) {
    replacedDirectory = directory;
    directoryOfTheUser.clear();
}

void KeepSettingsOfEachUser() {
    directoryOfTheUser =
        QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + QLatin1String("/lumrake");
}

QString SettingsFile() {
    const QString directory = directoryOfTheUser.isEmpty() ? ProgramDirectory() : directoryOfTheUser;
    const QString path = QDir(directory).filePath(QStringLiteral("LMK.CFG"));
    return FindFile(path).value_or(path);
}

void LoadSettings(const WindowTwips& window) {
    const auto useDefaults = [&window] { SetDefaultSettings(Settings, sAppVersion.Text(), window); };
    if (IsMissing(SettingsFile())) {
        useDefaults();
        return;
    }
    MemoryBlock file;
    const Outcome read = ReadWholeFile(SettingsFile(), file, kSettingsBytes);
    if (read.IsNotDone()) {
        useDefaults();
        TellFailure(
            read.During(QStringLiteral("The settings could not be read, the default settings are used.")),
            QStringLiteral("Settings"));
        return;
    }
    // What a short file lacks counts as blanks and zeros until its stamp has been looked at.
    std::array<std::uint8_t, kSettingsBytes> bytes{};
    std::copy(file.Bytes().begin(), file.Bytes().end(), bytes.begin());
    Settings = DecodeSettings(bytes);
    if (file.size() < kSettingsBytes && IsSameVersion(Settings, sAppVersion.Text())) {
        useDefaults();
        MsgBox(QStringLiteral("The settings file is too short.  Your settings have been reset."),
               BoxButtons::Ok, BoxIcon::Information, QStringLiteral("Settings"));
    }
}

void SaveSettings() {
    const Outcome folder = directoryOfTheUser.isEmpty() ? Outcome::Done() : MakeOwnFolder(directoryOfTheUser);
    const Outcome saved =
        folder.Then([] { return WriteFirstRecord(SettingsFile(), EncodeSettings(Settings)); });
    TellFailure(saved.During(QStringLiteral("The settings could not be saved.")), QStringLiteral("Settings"));
}

bool TellFailure(const Outcome& outcome, const QString& title) {
    if (!outcome.Reason().isEmpty()) {
        MsgBox(outcome.Reason(), BoxButtons::Ok, BoxIcon::Exclamation, title);
    }
    return outcome.IsDone();
}

void TellFileNotFound() {
    MsgBox(QStringLiteral("File not found!"), BoxButtons::Ok, BoxIcon::Information,
           QStringLiteral("Open file"));
}

void ShowNotAvailable() {
    MsgBox(QStringLiteral("Sorry, this option is not available yet."), BoxButtons::Ok, BoxIcon::Information,
           QStringLiteral("LMK V2.00"));
}

} // namespace lumrake
