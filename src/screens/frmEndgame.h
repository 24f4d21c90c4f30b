#pragma once
// The small box over the match screen with three buttons. It has two uses, told apart by the
// buttons' own captions at the moment of a click: the game-over box after the final board
// ("Thanks for Playing") and the pause box that Escape opens during a match ("Game Paused").
// Every button closes it, so each showing starts out as the game-over box.
#include "ui/Form.h"

class QLabel;
class QPushButton;

class frmEndgame : public ui::Form {
public:
    frmEndgame();
    static frmEndgame& Instance();

    QLabel* lblCaption = nullptr;
    QPushButton* cmdPlay = nullptr;
    QPushButton* cmdCredits = nullptr;
    QPushButton* cmdQuit = nullptr;

    // Opens the box over the final board of the match window `owner`. A pause box that is still
    // up becomes the game-over box: a finished match cannot be resumed.
    void ShowGameOver(QWidget* owner);
    // Opens the box relabelled as the pause box over `owner`.
    void ShowPause(QWidget* owner);

    void cmdPlay_Click();
    void cmdCredits_Click();
    void cmdQuit_Click();

protected:
    void CreateControls(QWidget* window) override;
    void Form_Load() override;
    void Form_Unload(bool& cancel) override;

private:
    void Relabel(bool pause);
    // Closes the box as its buttons do.
    void Leave();

    bool leaving_ = false;
};
