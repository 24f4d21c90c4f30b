// Wiring of the aiming controls and the flight timers, done anew with every showing of the screen.
#include <QLineEdit>
#include <QPushButton>

#include "match/frmGrumbo.h"
#include "ui/Input.h"

void frmGrumbo::ConnectFlightHandlers() {
    OnTimer(tmrMain, [this] { tmrMain_Timer(); });
    OnTimer(tmrCollision, [this] { tmrCollision_Timer(); });
    OnTimer(tmrTrap, [this] { tmrTrap_Timer(); });

    ui::OnKeyPress(txtAngle, [this](ui::CharCode& KeyAscii) { txtAngle_KeyPress(KeyAscii); });
    ui::OnKeyPress(txtVel, [this](ui::CharCode& KeyAscii) { txtVel_KeyPress(KeyAscii); });
    QObject::connect(txtAngle, &QLineEdit::textChanged, txtAngle, [this] { txtAngle_Change(); });
    QObject::connect(txtVel, &QLineEdit::textChanged, txtVel, [this] { txtVel_Change(); });
    QObject::connect(cmdThrow, &QPushButton::clicked, cmdThrow, [this] { cmdThrow_Click(); });
    for (int k = 0; k < 4; ++k)
        ui::OnClick(picSelect[k], [this, k] { picSelect_Click(static_cast<Integer>(k)); });
}
