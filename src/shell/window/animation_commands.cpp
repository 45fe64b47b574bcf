#include "shell/window/animation_commands.h"

#include "animation/frmAnimSetup.h"
#include "animation/frmAnimation.h"
#include "base/numbers.h"
#include "controls/common_dialog.h"
#include "shell/window/child_windows.h"
#include "snapshot/frmSnapshot.h"

namespace lumrake {

void NewAnimation() {
    OpenWindow<frmAnimation>(QString());
}

void OpenAnimationDialog() {
    const QString sFile = AskOpenFileName(QStringLiteral("Open animation file..."), kAnimationFilter);
    if (!sFile.isEmpty()) {
        OpenAnimationFile(sFile);
    }
}

void OpenAnimationFile(const QString& sFile) {
    OpenWindow<frmAnimation>(sFile);
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
