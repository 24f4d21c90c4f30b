#pragma once
// The title screen, where the program starts and every finished match returns: the game's name,
// six characters dancing in step, "Start" and "Exit".
#include <array>
#include <cstdint>

#include "core/Numeric.h"
#include "ui/Form.h"
#include "ui/Timer.h"

class QLabel;
class QPushButton;
namespace ui {
class PictureBox;
}

class frmSplash : public ui::Form {
public:
    frmSplash();
    static frmSplash& Instance();

    // 0 or 1; it goes on from its last value whenever the screen comes back.
    grumbo::Integer intDanceFrame = 0;

    // ---- Controls (valid while the screen is loaded) ----------------------------------------
    QLabel* lblTitle = nullptr;
    // 0 to 5 the six characters in their first pose, 6 to 11 the same in their second.
    std::array<ui::PictureBox*, 12> imgSplash{};
    QPushButton* cmdStart = nullptr;
    QPushButton* cmdExit = nullptr;
    ui::Timer tmrDance;

    void Form_Activate();
    void tmrDance_Timer();
    void cmdStart_Click();
    void cmdExit_Click();

protected:
    void CreateControls(QWidget* window) override;
    void Form_Load() override;
    void Form_Unload(bool& cancel) override;

private:
    // The screen's flat colour, which the white of its pictures takes.
    std::int32_t background_ = 0;
};
