#pragma once
// The timer calibration screen: loaded, never shown; its loading runs a test throw and sets the
// match screen's flight timer to what this machine manages.
#include "ui/Form.h"

class frmSynchronization : public ui::Form {
public:
    frmSynchronization();
    static frmSynchronization& Instance();

protected:
    void CreateControls(QWidget* window) override;
    void Form_Load() override;
};
