#pragma once

#include "snapshot/snapshot_probe.h"

namespace lumrake::testing {

/// Snapshot windows over files of any name, in an area that is only there to hold them.
class FileStage : public Stage {
  public:
    FileStage() {
        area.resize(700, 600);
        area.show();
    }
    void AdoptChild(QWidget* child) override { area.addSubWindow(child); }

    /// Opens a file of these bytes; null when it did not open.
    frmSnapshot* Open(const std::vector<std::uint8_t>& bytes, const QString& name) {
        MakeFile(name, bytes);
        auto form = std::make_unique<frmSnapshot>();
        return form->Launch(Path(name), name) ? form.release() : nullptr;
    }

  private:
    QMdiArea area;
};

} // namespace lumrake::testing
