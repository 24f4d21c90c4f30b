#pragma once
// The credits: the text of "Credits.txt" drawn once into an invisible buffer when the screen
// loads, then copied onto the black screen one pixel higher on every tick until it has passed,
// and "Credits Completed" in the middle. Space, Enter, Escape or the close box lead back to the
// title screen.
#include <QString>

#include "core/Numeric.h"
#include "ui/Form.h"
#include "ui/Input.h"
#include "ui/PictureBox.h"
#include "ui/Surface.h"
#include "ui/Timer.h"

class frmCredits : public ui::Form {
public:
    using Long = grumbo::Long;

    frmCredits();
    static frmCredits& Instance();

    // The drawing buffer: invisible, so it is a plain surface with a drawing position.
    ui::Surface picCredits;
    int CurrentY = 0;
    // The screen the buffer is copied onto.
    ui::PictureBox* picScreen = nullptr;
    ui::Timer tmrCredits;

    QString strCreditLine;
    Long lngScrollTop = 0;
    Long lngBufferHeight = 0;
    Long lngBufferWidth = 0;
    Long lngScrollLeft = 0;

    void PrintText(const QString& text);
    void tmrCredits_Timer();
    void Form_KeyPress(ui::CharCode& KeyAscii);

protected:
    void CreateControls(QWidget* window) override;
    void Form_Load() override;
    void Form_Unload(bool& cancel) override;

private:
    void ReadCredits();
};
