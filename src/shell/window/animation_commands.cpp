#include "shell/window/animation_commands.h"

#include "animation/frmAnimSetup.h"
#include "animation/frmAnimation.h"
#include "base/numbers.h"
#include "controls/common_dialog.h"
#include "shell/shell.h"
#include "shell/window/child_windows.h"
#include "snapshot/frmSnapshot.h"

namespace lumrake {

namespace {

const QString kTitle = QStringLiteral("Animation"); ///< of messages
const QString kSaveAsTitle = QStringLiteral("Save animation file as...");
const QString kFilter = QStringLiteral("Animation files (*.ANM)|*.ANM|All files (*.*)|*.*");

/// Saves the animation to its own file, unless another program changed that.
Outcome SaveUnchanged(frmAnimation& animation) {
    return animation.FindFileUnchanged().Then(
        [&animation] { return animation.SaveAnimation(animation.GetFilename()); });
}

} // namespace

void NewAnimation() {
    OpenWindow<frmAnimation>(QString());
}

void OpenAnimationDialog() {
    const QString sFile = AskOpenFileName(QStringLiteral("Open animation file..."), kFilter);
    if (!sFile.isEmpty()) {
        OpenAnimationFile(sFile);
    }
}

void OpenAnimationFile(const QString& sFile) {
    OpenWindow<frmAnimation>(sFile);
}

bool SaveAnimationCommand(frmAnimation& animation) {
    const QString sFile = animation.GetFilename();
    return sFile.isEmpty() ? SaveAnimationAs(animation) : TellFailure(SaveUnchanged(animation), kTitle);
}

bool SaveAnimationAs(frmAnimation& animation) {
    const std::optional<QString> sNewName = AskName(animation, kSaveAsTitle, kFilter);
    return sNewName && TellFailure(animation.SaveAnimation(*sNewName), kTitle);
}

bool SaveAnimationBeforeClosing(frmAnimation& animation) {
    std::optional<QString> sName = animation.GetFilename();
    bool bAsked = sName->isEmpty();
    const auto askName = [&] {
        bAsked = true;
        return AskName(animation, kSaveAsTitle, kFilter);
    };
    if (bAsked) {
        sName = askName();
    }
    if (!sName || sName->isEmpty()) { // a new one is given up with its dialog
        return true;
    }
    return SaveUntilGivenUp(*sName, kTitle, askName, [&](const QString& sFile) {
        return bAsked ? animation.SaveAnimation(sFile) : SaveUnchanged(animation);
    });
}

void AnimateSnapshot(const frmSnapshot& snapshot) {
    GlobalAnim.sSnapFile.Set(snapshot.GetFilename().toStdString());
    GlobalAnim.iWidth = snapshot.GetWidth();
    GlobalAnim.iLines = snapshot.GetLines();
    GlobalAnim.lOffset = snapshot.GetOffset();
    GlobalAnim.iFrames = snapshot.GetColumns();
    GlobalAnim.byAttribute = static_cast<std::uint8_t>(snapshot.GetAttribute());
    GlobalAnim.iMode = lmk::PlayableMode(snapshot.GetMode());
    GlobalAnim.iUpsideDown = snapshot.GetUpsideDown();
    GlobalAnim.iRepeat = kContinuous;
    GlobalAnim.iPause = 100;
    GlobalAnim.lStep = HeldTo<std::int32_t>(
        static_cast<double>(FrameBytes(GlobalAnim.iMode, GlobalAnim.iWidth, GlobalAnim.iLines)));
    GlobalAnim.sTitle.Set("New Animation");
    OpenWindow<frmAnimation>(QString(), snapshot.GetFilename()); // whole, where the record has to cut it
}

} // namespace lumrake
