#pragma once

#include <QDialog>

class QPushButton;

namespace lumrake {

/// The About box: two pages of one size on top of each other, which one button flips. It always opens on the
/// About page.
class frmAbout : public QDialog {
  public:
    explicit frmAbout(QWidget* parent = nullptr);

  private:
    void Form_Load();
    void cmdFlip_Click();
    void cmdOkay_Click();

    QWidget *Frame1 = nullptr, *Frame2 = nullptr;
    QPushButton* cmdFlip = nullptr;
};

/// Shows the About box and returns when it is closed.
void ShowAbout();

} // namespace lumrake
