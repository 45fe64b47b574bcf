#pragma once

#include "animation/rules/animation_record.h"
#include "animation/rules/stepping.h"
#include "base/memory_block.h"
#include "controls/control_array.h"
#include "shell/document_form.h"
#include "shell/kept_document.h"

#include <QPushButton>
#include <QString>
#include <QTimer>

#include <array>
#include <cstdint>

namespace lumrake {

class PictureBox;
struct MouseArgs;

/// Of the dialogs that ask for an animation file.
inline const QString kAnimationFilter = QStringLiteral("Animation files (*.ANM)|*.ANM|All files (*.*)|*.*");

/// An animation window: shows one frame at a time out of its own copy of the snapshot's bytes. One instance
/// per animation. Inside the window all places are logical screen pixels.
class frmAnimation : public DocumentForm {
  public:
    frmAnimation();

    // ---- the document: frmAnimation.cpp ----

    /// Opens the window, stopped on frame 0; called once, before anything else. An empty `AnimFile` makes a
    /// new animation through the setup dialog, which shows the path `sSnapFile`, when that is given, in place of
    /// GlobalAnim's; any other is the true path of an .ANM file. False when there is no window: the user gave up
    /// or has been told why, nothing is counted, and the caller lets the instance go.
    bool Launch(const QString& AnimFile, const QString& sSnapFile = {});

    /// The same for an animation whose record was kept in the file `sKeptIn`. It is changed then.
    bool BringBack(const Recovery& recovery, const QString& sKeptIn, bool bFileChanged);

    /// Writes the record, as SaveTo says.
    Outcome SaveAnimation(const QString& sFilename);
    Outcome SaveTo(const QString& sFilename) override { return SaveAnimation(sFilename); }

    QString GetFilename() const override { return sFilePath; }
    /// -1: the record differs from what is on the disk, or was never saved; 0: it does not.
    void SetChanged(std::int16_t NewStatus);

    /// The settings of this window into GlobalAnim, and back. The path, the zoom and the file length stay.
    void AnimToGlobal() const;
    void GlobalToAnim();

    // ---- the player: frmAnimation_player.cpp ----

    void Play();
    void StopPlay();
    void PreviousFrame();
    /// Draws frame iCurrentFrame into the picture and repaints it; nothing else draws.
    void ShowCurrentFrame();
    void ReShow() override { ShowCurrentFrame(); }
    /// Brings caption, pause, sizes and places into line with the record. Stops playing.
    void SetPositions();
    std::int16_t GetZoom() const { return record.iZoom; }
    /// Goes on playing.
    void SetZoom(std::int16_t NewZoom) override;
    void Form_Activate() override;

  protected:
    bool event(QEvent* event) override;
    std::int16_t Changed() const override { return bChanged; }
    void LetGo() override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    friend struct AnimationProbe; // lets tests read the fields

    // ---- the document ----
    /// Opens the window on the record.
    bool Open();
    bool TakeNewSettings(const QString& sSnapFile);
    bool ReadRecord(const QString& sFile);
    bool AskForSnapshot();
    /// Runs the setup dialog over GlobalAnim and takes what the user confirmed into the record. False when he gave it
    /// up, or the window was closed meanwhile: no member may be touched then.
    bool AskForSettings(const QString& sSnapFile = {});
    bool LoadSnapshot(const QString& sFile);
    QString SnapshotPath() const;

    // ---- the player ----
    void CreateControls();
    void NextFrame();
    void Timer1_Timer();
    void Setup();
    /// What the outer size of the window has more than its inner one.
    QSize FrameSize() const;
    void EnableControls(bool bPlaying);
    bool IsSetupKey(const QKeyEvent& event) const;
    void cmdControl_Click(int Index);
    void picImage_MouseDown(const MouseArgs& args);
    /// Lays the window out again after a change of zoom or settings, and plays on if it played.
    void ShowAgain(bool bPlaying);

    // ---- fields ----
    AnimationRecord record;
    std::array<std::uint8_t, kAnimationBytes>
        byFile{}; ///< the record in its file; zeros before the first save
    std::array<std::uint8_t, kAnimationBytes> byKept{}; ///< the record when it is kept
    ChangedBlocks blocks;                               ///< one, the record
    KeptDocument kept;
    QString sFilePath;         ///< true path of the animation's own file; the record has it as far as it fits
    MemoryBlock byMemory;      ///< at most lFileLength bytes of the snapshot, read once
    PlayState state;           ///< iCurrentFrame and iDirection
    std::int16_t bChanged = 0; ///< see SetChanged
    QTimer Timer1;

    // ---- controls ----
    PictureBox* picImage = nullptr;
    ControlArray<QPushButton, 5> cmdControl{};
};

} // namespace lumrake
