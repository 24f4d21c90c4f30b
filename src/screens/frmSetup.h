#pragma once
// The setup screen: the options of the next match. Every option is chosen with an arrow control
// or a slider; the boxes beside them only show the value. "Next" stores the options and goes on
// to player selection.
#include "ui/Form.h"

class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QSlider;
namespace ui {
class ArrowControl;
}

class frmSetup : public ui::Form {
public:
    frmSetup();
    static frmSetup& Instance();

    // True once the screen is being left through "Next".
    bool blnNextPressed = false;

    // ---- Controls (valid while the screen is loaded) ----------------------------------------
    QLabel *Label1 = nullptr, *Label2 = nullptr, *Label3 = nullptr;
    QLabel *Label4 = nullptr, *Label5 = nullptr, *Label6 = nullptr;
    QLineEdit* txtGrav = nullptr;
    QLineEdit* txtGametype = nullptr;
    QLineEdit* txtTime = nullptr;
    QLineEdit* txtNmatch = nullptr;
    QLineEdit* txtWind = nullptr;
    QLineEdit* txtBuilding = nullptr;
    ui::ArrowControl* FlatScroll = nullptr;   // gravity in tenths
    ui::ArrowControl* FlatScroll1 = nullptr;  // game type
    ui::ArrowControl* FlatScroll2 = nullptr;  // time of day
    ui::ArrowControl* FlatScroll3 = nullptr;  // frag limit
    QSlider* Slider1 = nullptr;               // wind extremity
    QSlider* Slider2 = nullptr;               // building height
    QCheckBox* chkWind = nullptr;
    QCheckBox* chkMusic = nullptr;
    QPushButton* cmdStart = nullptr;

    void cmdStart_Click();
    void FlatScroll_Change();
    void FlatScroll1_Change();
    void FlatScroll2_Change();
    void FlatScroll3_Change();
    void Slider1_Scroll();
    void Slider2_Scroll();

protected:
    void CreateControls(QWidget* window) override;
    void Form_Load() override;
    void Form_Unload(bool& cancel) override;

private:
    void CreateChoosers(QWidget* window);
};
