#include "flight/frmSynchronization.h"

frmSynchronization::frmSynchronization() : ui::Form(722, 466, Qt::Tool) {}

frmSynchronization& frmSynchronization::Instance() {
    static frmSynchronization f;
    return f;
}

void frmSynchronization::CreateControls(QWidget* window) { (void)window; }

void frmSynchronization::Form_Load() {}
