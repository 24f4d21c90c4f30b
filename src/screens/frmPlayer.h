#pragma once
// Player selection: each player in turn types a name and picks a character from the characters
// folder, with a preview and the character's own sound. The caption tells whose turn it is and
// is the screen's pass state. Its closing starts the match, or ends the program when not every
// player of the game type has a character.
#include <cstdint>

#include "core/Numeric.h"
#include "ui/Form.h"
#include "ui/Input.h"
#include "ui/Surface.h"

class QLabel;
class QLineEdit;
class QPushButton;
namespace ui {
class ArrowControl;
class PictureBox;
}  // namespace ui

class frmPlayer : public ui::Form {
public:
    frmPlayer();
    static frmPlayer& Instance();

    // How many characters the folder scan listed.
    grumbo::Integer intCharacterCount = 0;

    // ---- Controls (valid while the screen is loaded) ----------------------------------------
    QLineEdit* txtPname = nullptr;
    ui::PictureBox* imgPlayer = nullptr;
    ui::ArrowControl* FlatScroll = nullptr;
    QLineEdit* txtName = nullptr;
    QPushButton* cmdBack = nullptr;
    QPushButton* cmdOk = nullptr;
    // Stands where the preview would be when the folder holds no complete character.
    QLabel* lblNoCharacters = nullptr;
    ui::Surface picPreload;

    void cmdOk_Click();
    void cmdBack_Click();
    void txtName_Change();
    void txtPname_KeyPress(ui::CharCode& KeyAscii);
    void FlatScroll_Change();

protected:
    void CreateControls(QWidget* window) override;
    void Form_Load() override;
    void Form_Unload(bool& cancel) override;

private:
    void ScanCharacters();
    bool FitsTheLimits(const QString& file);
    void ShowPreview(const QString& name);
    void ShowNoCharacters();
    void Unlock(const QString& name);
    void NextPlayer(int player);

    // The screen's flat colour, which the white of its pictures takes.
    std::int32_t background_ = 0;
};
