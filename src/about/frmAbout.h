#pragma once

#include <QDialog>

#include <cstdint>

class QFrame;
class QLabel;
class QPushButton;

namespace lumrake {

class DrawingBox;

/// The About box: two pages of one size on top of each other, which one button flips. It always opens on the
/// About page.
class frmAbout : public QDialog {
  public:
    explicit frmAbout(QWidget* parent = nullptr);

  protected:
    bool eventFilter(QObject* control, QEvent* event) override;

  private:
    void CreateAboutPage();
    void CreateCreditPage();
    void Form_Load();
    void cmdFlip_Click();
    std::int32_t HelpNumberOf(const QObject* control) const;

    QFrame *Frame1 = nullptr, *Frame2 = nullptr;
    DrawingBox* Image1 = nullptr;
    QLabel *lblApp = nullptr, *lblVersion = nullptr, *Label1 = nullptr, *Label2 = nullptr; // on Frame1
    QLabel *lblApp2 = nullptr, *Label3 = nullptr, *lblPeople = nullptr;                    // on Frame2
    QPushButton *cmdFlip = nullptr, *cmdOkay = nullptr;
};

/// Shows the About box and returns when it is closed.
void ShowAbout();

} // namespace lumrake
