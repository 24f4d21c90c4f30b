#pragma once
// The timer calibration screen: loaded, never shown. Its loading runs a test throw over a small
// test area and sets the match screen's flight timer from the number of ticks the test took.
#include <array>

#include "core/Numeric.h"
#include "match/Overlays.h"
#include "ui/Form.h"
#include "ui/PictureBox.h"
#include "ui/Surface.h"
#include "ui/Timer.h"

class frmSynchronization : public ui::Form {
public:
    using Integer = grumbo::Integer;

    // The test reports to `loading` and sets the interval of `matchFlightTimer`. The designed
    // test area is 101 pixels wide; other widths exist for checking the adjustment.
    frmSynchronization(LoadingBox& loading, ui::Timer& matchFlightTimer, int areaWidth = 101);

    Integer intFlightTime = 0;
    Integer intTickDivisor = 10;
    Integer intHandX = 0, intHandY = 0;
    Integer intFrame = 0;
    Integer intTestTime = 0;

    ui::PictureBox* picArea = nullptr;
    ui::PictureBox* imgProjectile = nullptr;
    std::array<ui::Surface, 4> Projectile;
    ui::Timer tmrMain;
    ui::Timer tmrCollision;

    void tmrMain_Timer();
    void tmrCollision_Timer();

protected:
    void CreateControls(QWidget* window) override;
    void Form_Load() override;
    void Form_Unload(bool& cancel) override;

private:
    void PaintTestArea();
    // Runs the test throw until it passes the test area; false when it ran out of time.
    bool FlyTest();
    void AdjustMatchTimer();

    LoadingBox& loading_;
    ui::Timer& matchFlightTimer_;
    int areaWidth_;
};
