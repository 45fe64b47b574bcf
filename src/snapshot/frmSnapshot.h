#pragma once

#include "base/memory_block.h"
#include "base/wheel_steps.h"
#include "controls/control_array.h"
#include "controls/picture_box.h"
#include "shell/document_form.h"
#include "shell/kept_document.h"
#include "snapshot/rules/addressing.h"
#include "snapshot/rules/cell.h"
#include "snapshot/rules/document.h"
#include "snapshot/rules/placing.h"

#include <QBasicTimer>
#include <QRect>
#include <QString>

#include <array>
#include <cstdint>
#include <optional>

class QLabel;
class QProgressBar;
class QPushButton;

namespace lumrake {

class ColourButton;
class PanelBar;
class SpinBar;
class ValueBox;

/// A snapshot window: document and view in one. It holds a whole file as bytes and the numbers that say how
/// they are looked at, shows them as a picture and edits them. One instance per opened file.
///
/// The sections below stand in the order of the files: frmSnapshot.cpp (the document), _layout, _navigation,
/// _modes, _tools, _keys, _marks, _spoken, _net, _clipboard, _export. Inside the window all places are logical screen
/// pixels.
class frmSnapshot : public DocumentForm {
  public:
    frmSnapshot();
    ~frmSnapshot() override;

    // ---- the document: frmSnapshot.cpp ----

    /// Reads the file `sFullFileName` (a true path) and shows it with the default view; called once, before
    /// anything else. False when the file is missing, cannot be read, is empty or too long: the user has been
    /// told, no window is shown and the caller lets the instance go.
    bool Launch(const QString& sFullFileName, const QString& sFileTitle) {
        return Launch(sFullFileName, sFileTitle, 0);
    }

    /// In the place of Launch: reads the file of the document and lays the bytes that were kept in the file `sKeptIn`
    /// over its own. The document is changed then, and reaches at least as far as they do. `bFileChanged`: the
    /// document's file has changed since they were kept.
    bool BringBack(const Recovery& recovery, const QString& sKeptIn, bool bFileChanged);

    /// Writes all bytes to `sFilename` and makes it this window's file. Called off for an empty name. Unless
    /// it is done the document stays changed and keeps its name; the caller tells why. Pending events run, and may
    /// close the window.
    Outcome SaveSnap(const QString& sFilename, const QString& sTitle);
    Outcome SaveTo(const QString& sFilename) override;

    /// Draws the view into the picture and repaints it; nothing else draws.
    void ShowMem();
    /// Colours of the picture and of the buttons.
    void ReShow() override { SetAttribute(iAttribute, true); }

    std::int16_t GetAttribute() const { return iAttribute; }
    std::int16_t GetFlip() const { return view.iUpsideDown == 1 ? std::int16_t{-1} : std::int16_t{0}; }
    std::int16_t GetMode() const { return view.iMode; }
    std::int16_t GetUpsideDown() const { return view.iUpsideDown; }
    std::int16_t GetZoom() const { return view.iZoom; }
    std::int32_t GetOffset() const { return view.lOffset; }
    std::int16_t GetColumns() const { return view.iColumns; }
    std::int16_t GetLines() const { return view.iLines; }
    std::int16_t GetWidth() const { return view.iWidth; }
    QString GetFilename() const override { return sSnapFile; }

    // ---- layout and zoom: frmSnapshot_layout.cpp ----

    /// Keeps the net on its pixels.
    void SetZoom(std::int16_t NewZoom) override;
    /// Puts the picture's corner at this place of its container, in screen pixels of any size and sign,
    /// without drawing.
    void SetPosition(std::int32_t iLeft, std::int32_t iTop);
    /// Shows its caption, its numbers, its ticks and which commands it allows in the main window. Draws nothing when
    /// the value boxes are up to date.
    void Form_Activate() override;

    // ---- modes, flip, attribute: frmSnapshot_modes.cpp ----

    /// Display mode 0 to 4, with the sizes that it demands and the boxes that it switches off. A number that
    /// changes redraws by itself; iRefresh redraws in any case.
    void SetMode(std::int16_t iNewMode, bool iRefresh);
    /// 0 shows the picture upright, anything else upside down. Always redraws, changes no byte.
    void SetFlip(std::int16_t NewFlip);
    /// Attribute byte of the whole view; only its low byte counts. Changes no byte of the document.
    void SetAttribute(std::int16_t iNewAttribute, bool iRefresh);

    // ---- the cell cursor: frmSnapshot_keys.cpp ----

    /// The picture pixel at which the keys work: always one of the picture, but that it may stand one pixel past the
    /// right and the lower edge while it drags a net.
    PicturePixel Cell() const;
    /// The byte and bit under it; nothing past the end of the file.
    std::optional<PixelAddress> CellAddress() const;
    bool IsCellSet() const { return document.ReadPixel(Cell()) != 0; }
    /// Moves the cell, as a mouse that holds the buttons pressed at the cell, to this picture pixel or the nearest to
    /// it, and pans the picture so that it is in sight.
    void MoveCell(std::int32_t x, std::int32_t y);
    /// Presses a mouse button, 1 left or 2 right, at the cell, on the block that hangs there if there is one, and lets
    /// it go again. Does nothing when it is pressed already, or not.
    void PressAtCell(std::int16_t Button);
    void ReleaseAtCell(std::int16_t Button);
    /// Lets go of a block that hangs on the mouse, in whichever window: the file is not touched and the tool of before
    /// comes back. False when there is none.
    static bool LetBlockGo();

    // ---- by ear: frmSnapshot_spoken.cpp ----

    /// What a screen reader hears of the picture may have changed: the cell, the tool, a block that hangs.
    void TellPicture() const;

    // ---- net: frmSnapshot_net.cpp ----

    /// Brings the shape into line with iNetX, iNetY, iNetWidth, iNetHeight.
    void SetNetPosition();
    /// Hides the net; its numbers stay.
    void ClearNet();

    // ---- clipboard: frmSnapshot_clipboard.cpp ----

    /// Lifts the pixels under the net to the clipboard and, with iCut, clears them.
    void Copy(bool iCut);
    /// Clears the pixels under the net.
    void Delete();
    /// Hangs the block of the clipboard on the mouse until it is dropped.
    void Paste();

    // ---- export: frmSnapshot_export.cpp ----

    void ExportViewToBMP();
    void ExportViewToRaw();
    void ExportSelectionToBMP();

  protected:
    bool eventFilter(QObject* control, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    std::int16_t Changed() const override { return document.Changed(); }
    void LetGo() override;
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    /// With zeros behind the file's bytes up to `lLeast` of them.
    bool Launch(const QString& sFullFileName, const QString& sFileTitle, std::int64_t lLeast);
    friend struct SnapshotProbe; // lets tests read the fields and controls

    // ---- the document ----
    // These three let pending events run, but for keys and mouse. A timer, or a screen reader's action, may close the
    // window meanwhile: then they say false and no member may be touched any more.
    bool ServeEvents();
    /// Shows the progress bar over the first status panel, or hides it.
    bool ShowProgress(bool bShow);
    /// Shows how far the work has come, 0 to 100 percent.
    bool ShowStage(int percent);
    /// Fills the device context with the view as far as its clip allows; repaints nothing.
    void DrawView();
    /// Draws and repaints one picture pixel only.
    void ShowPixel(const PicturePixel& pixel);
    /// Writes the pixel under a screen position; the document counts as changed whatever becomes of it. With
    /// bRefresh the pixel is redrawn.
    void WritePixel(float X, float Y, std::int16_t iValue, bool bRefresh);
    std::int16_t ReadPixel(float X, float Y) const;

    // ---- layout ----
    void CreateControls();
    void Form_Load();
    void CreateValueBoxes();
    void CreateStatusBar();
    void Form_Resize();
    void PlaceColourButtons();
    void FillValueBoxes();
    void sbrSnapshot_PanelClick(int Panel);
    void cmdOptions_Click();

    // ---- navigation ----
    void ConnectNavigation();
    /// Puts the thumb where lOffset says, and the address bar at rest there.
    void PlaceScrollThumb();
    /// The address bar is at rest where the thumb stands.
    void RestAddressBar();
    void scrAddr_Change(int newValue);
    void scrValue_Change(int Index, int newValue);
    /// A click on an arrow of the spin button, as far as that is enabled.
    void StepValue(int Index, bool bUp);
    void txtValue_Change(int Index);
    void cmdScroll_MouseDown(const MouseArgs& args);
    void cmdScroll_MouseMove(const MouseArgs& args);
    void cmdScroll_MouseUp(const MouseArgs& args);

    // ---- modes ----
    /// To the next of the eight colours, or to the one before.
    void cmdColour_Click(int Index, bool bBack = false);

    // ---- tools ----
    void ConnectTools();
    void picImage_MouseDown(const MouseArgs& args);
    void picImage_MouseMove(const MouseArgs& args);
    void picImage_MouseUp(const MouseArgs& args);
    void MagnifyAbout(const MouseArgs& args);
    void DragTool(const MouseArgs& args);
    void HoverTool(const MouseArgs& args);

    // ---- keys ----
    void ConnectKeys();
    /// A mouse event at the corner of the cell.
    MouseArgs AtCell(std::int16_t Button) const;
    /// The keys hold the picture with the Pan tool: it moves under the cell.
    bool CellPans() const;
    void BringCellIntoSight();
    /// The mouse takes the cell over.
    void MouseComes(const MouseArgs& args);
    /// The cell may have moved, or what is under it: shows it where it now is.
    void ShowCell();
    /// Paints the frame of the cell, seen on every colour, into a control whose corner this is in picContainer.
    void PaintCell(QPainter& painter, const QRect& exposed, const QPoint& corner) const;
    /// Pans by screen pixels, as far as there is picture.
    void PanBy(int across, int down);
    bool picImage_KeyDown(const QKeyEvent& key, bool bLong);
    bool KeyDown(const QObject* control, QKeyEvent& key);
    struct WheelRow;
    static const WheelRow kWheel[];
    void Turned(const QObject* control, const QWheelEvent& turn);
    void FocusMoved(const QFocusEvent& event);

    // ---- marks ----
    /// Another byte may be under the cell or the mouse: its lines are painted after a little while.
    void ShowByte();
    /// The byte under the cell, or under the mouse, whichever moved last; nothing where neither is on the picture.
    std::optional<ByteUnder> PointedByte() const;
    QRect ByteLinesPlace() const;
    void PaintByteLines(QPainter& painter) const;
    void ToggleGrid();
    void PaintGrid(QPainter& painter, const QRect& exposed) const;

    // ---- by ear ----
    void ConnectSpeech();
    QString CellWords() const; ///< "12, 34, set, byte 21397, bit 3"
    QString ViewWords() const; ///< "Picture, Graphics, 1x, Draw"

    // ---- net ----
    void DragNet(const MouseArgs& args);
    void EndNet();
    /// Keeps the net, and a block that is being placed, on their picture pixels after a change of the factor.
    void ScaleNet(std::int32_t iOldFactor);
    /// Gives the shape its new form and repaints where it was and where it now is.
    void SetShape(const Net& shape);
    void PaintNet(QPainter& painter, const QRect& exposed) const;

    // ---- clipboard ----
    inline static Placing<frmSnapshot> placing{iCurrentTool};
    bool IsPlacing() const { return placing.window == this; }
    /// Shows in barProgress how far a walk over a block has come.
    RowProgress ProgressOfRows();
    /// Shows the block of the clipboard, framed, in the size of this window.
    void HangBlock();
    /// Brings imgClip to where the block is.
    void PlaceClip();
    /// Takes the block and its frame off the picture.
    void TakeBlockOff();
    /// Ends the placing in this window, if there is one.
    void EndPlacing();
    void imgClip_MouseMove(const MouseArgs& args);
    void imgClip_MouseDown(const MouseArgs& args);

    // ---- fields ----
    SnapshotDocument document;
    KeptDocument kept;
    ViewNumbers& view = document.view; ///< what is looked at, and how
    std::int16_t& iAttribute = document.iAttribute;
    const MemoryBlock& byMemory = document.Memory();
    QString sSnapFile;  ///< true path; shown in lower case
    QString sSnapTitle; ///< file name without its path, lower case, at most 40 characters: the caption
    Pan pan;
    CellCursor cell;
    std::optional<ByteUnder> shownByte; ///< in the lines below the columns, after a little while
    QBasicTimer byteDelay;
    WheelSteps wheel, sideWheel; ///< turned up and down, and sideways
    inline static bool bGrid = false;
    QRect cellFrame; ///< where it is painted, in picContainer; empty while it is not
    std::array<std::int32_t, 4> lValueMin{}, lValueMax{}, lValueStep{}; ///< of the spin buttons
    std::int32_t lScrollGrabY = 0;      ///< pixel row inside cmdScroll at which a drag began
    std::int16_t iPanelButton = 0;      ///< mouse button last pressed on sbrSnapshot
    float sngMouseX = 0, sngMouseY = 0; ///< last mouse position over picImage

    // ---- controls ----
    QWidget* picContainer = nullptr;
    PictureBox* picImage = nullptr;
    ImageBox* imgClip = nullptr;      ///< the block being placed, a child of picImage
    Net shpNet{{40, 16, 57, 49}, {}}; ///< the net, or the frame of imgClip
    SpinBar* scrAddr = nullptr;       ///< its value, at rest, is the thumb's place in the track
    QWidget* txtScroll = nullptr;
    QPushButton* cmdScroll = nullptr;
    ControlArray<QLabel, 4> lblCaption{};
    ControlArray<ValueBox, 4> txtValue{};
    ControlArray<SpinBar, 4> scrValue{};
    QPushButton* cmdOptions = nullptr;
    PanelBar* sbrSnapshot = nullptr;
    ControlArray<ColourButton, 2> cmdColour{}; ///< ink, paper
    QProgressBar* barProgress = nullptr;
};

} // namespace lumrake
