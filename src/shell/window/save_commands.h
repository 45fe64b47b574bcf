#pragma once

namespace lumrake {

class DocumentForm;

// The commands that save a document of either kind. Paths are true paths, spelled as the disk spells them.

/// Saves the document to its own file, without a question, or asks for a name when it has none. True when it is on the
/// disk.
bool Save(DocumentForm& document);
/// Asks for a new name and saves there. False when the user gave up or the save failed.
bool SaveAs(DocumentForm& document);
/// For a window that closes after the answer Yes: saves, asking for a name when there is none; giving up that dialog
/// gives the document up. After a failure a box tells the reason and asks whether to save under another name, until the
/// document is on the disk or the user says No. False, for Cancel and for a dialog given up then, means that the window
/// stays.
bool SaveBeforeClosing(DocumentForm& document);

} // namespace lumrake
