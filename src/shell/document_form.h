#pragma once

#include "disk/known_file.h"
#include "disk/outcome.h"
#include "shell/shell.h"

#include <QString>
#include <QWidget>

#include <cstdint>
#include <optional>

namespace lumrake {

/// What the kinds of documents differ in where they are saved and closed.
struct DocumentKind {
    std::int16_t& iCount;              ///< of the open windows
    QString sCommands;                 ///< their name for UpdateToolbars
    QString sTitle;                    ///< of the question on the way out
    QString sSaveTitle;                ///< of the message that a save failed
    QString sSaveAsTitle, sSaveFilter; ///< of the dialog that asks for a name
    bool bRecent;                      ///< a new name enters the recent list
};

/// A document window, as the main window knows it.
class DocumentForm : public QWidget {
  public:
    explicit DocumentForm(const DocumentKind& kind) : kind_(kind) {}

    const DocumentKind& Kind() const { return kind_; }
    /// The true path of the file; empty for a document that was never saved.
    virtual QString GetFilename() const = 0;
    /// -1 when the document may differ from its file, else 0.
    virtual std::int16_t Changed() const = 0;
    /// Writes the document to `sFilename` and makes it this window's file. Called off for an empty name. Unless it is
    /// done the document stays changed and keeps its name; the caller tells why. The window may be gone behind it.
    virtual Outcome SaveTo(const QString& sFilename) = 0;
    /// Fails when another program changed the document's own file since it was read or saved here.
    Outcome FindFileUnchanged() const { return knownFile.FindUnchanged(GetFilename()); }

    /// Zoom index 1 to 5; another one leaves the zoom as it was.
    virtual void SetZoom(std::int16_t NewZoom) = 0;
    /// The palette may have changed.
    virtual void ReShow() = 0;
    /// The window became the active child.
    virtual void Form_Activate() = 0;

    /// Asks about unsaved changes and counts the window out. Sets Cancel when the window is to stay. Runs
    /// once for each attempt to close the window, and not again while it runs.
    void Form_Unload(bool& Cancel);

  protected:
    /// What goes with the window when it closes: its changes are saved or given up.
    virtual void LetGo() = 0;

    void closeEvent(QCloseEvent* event) override;

    KnownFile knownFile;
    std::optional<CountedIn> counted; ///< from Launch until Form_Unload lets the window go

  private:
    const DocumentKind& kind_;
    bool closing_ = false; ///< Form_Unload is under way
};

} // namespace lumrake
