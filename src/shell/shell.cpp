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
#include <QPoint>
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

QString& ReplacedDirectory() {
    static QString directory;
    return directory;
}

/// Where the settings lie, or nothing for the program's directory.
QString& DirectoryOfTheUser() {
    static QString directory;
    return directory;
}

} // namespace

ShellNotices* SetShellNotices(ShellNotices* notices) {
    SetHelpReceiver(ShowPrompt);
    return std::exchange(registered, notices != nullptr ? notices : &nobody);
}

void SetStatusText(const QString& sText) {
    registered->SetStatusText(sText);
}

void ShowCaption() {
    registered->ShowCaption();
}

void ShowCoords(std::int16_t iIndex, double x, double y) {
    registered->ShowCoords(iIndex, x, y);
}

void EnableFunction(std::int16_t iGroup, bool bEnable) {
    registered->EnableFunction(iGroup, bEnable);
}

void EnableNetCommands(bool bEnable) {
    for (const FunctionGroup iGroup : {kGroupCut, kGroupCopy, kGroupDelete, kGroupExportSelection}) {
        EnableFunction(iGroup, bEnable);
    }
}

void UpdateToolbars(const QString& sKind, bool bEnable) {
    registered->UpdateToolbars(sKind, bEnable);
}

void ShowPrompt(std::int32_t lNumber) {
    registered->ShowPrompt(lNumber);
}

void ShowModeTick(std::int16_t iMode) {
    registered->ShowModeTick(iMode);
}

void ShowFlipTick(bool bOn) {
    registered->ShowFlipTick(bOn);
}

void PopupSnapshotMenu(const QPoint& screenPlace) {
    registered->PopupSnapshotMenu(screenPlace);
}

void ChooseTool(std::int16_t iTool) {
    registered->ChooseTool(iTool);
}

void ShowRecentFiles() {
    registered->ShowRecentFiles();
}

void AdoptChild(QWidget* child) {
    registered->AdoptChild(child);
}

bool SaveBeforeClosing(QWidget* child) {
    return registered->SaveBeforeClosing(child);
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
    return ReplacedDirectory().isEmpty() ? QCoreApplication::applicationDirPath() : ReplacedDirectory();
}

void SetProgramDirectory(const QString& directory) {
    ReplacedDirectory() = directory;
    DirectoryOfTheUser().clear();
}

void KeepSettingsOfEachUser() {
    DirectoryOfTheUser() =
        QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + QLatin1String("/lumrake");
}

QString SettingsFile() {
    const QString directory = DirectoryOfTheUser().isEmpty() ? ProgramDirectory() : DirectoryOfTheUser();
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
    Outcome outcome = DirectoryOfTheUser().isEmpty() ? Outcome::Done() : MakeOwnFolder(DirectoryOfTheUser());
    if (outcome.IsDone()) {
        outcome = WriteFirstRecord(SettingsFile(), EncodeSettings(Settings));
    }
    TellFailure(outcome.During(QStringLiteral("The settings could not be saved.")),
                QStringLiteral("Settings"));
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
