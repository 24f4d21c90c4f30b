#include "screens/JoinDialog.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "screens/FrontEnd.h"
#include "ui/Labels.h"
#include "ui/MessageBox.h"
#include "ui/OwnedBox.h"
#include "ui/ScreenLook.h"

namespace screens {

namespace {
constexpr int kWidth = 240, kHeight = 122;
// Room for a host name, or an IPv6 address in brackets with its port.
constexpr int kAddressLength = 300, kCodeLength = 32;
}  // namespace

JoinDialog::JoinDialog(QWidget* owner) : ui::Window(kWidth, kHeight, ui::frontEndFlags(), owner) {
    setWindowTitle(QStringLiteral("Join a Match"));
    prepareWindow(this, ui::windowColour());
    ui::makeLabel(this, 10, 12, 50, 19, QStringLiteral("Address"));
    addressBox = new QLineEdit(this);
    addressBox->setGeometry(62, 12, 168, 19);
    addressBox->setMaxLength(kAddressLength);
    ui::makeLabel(this, 10, 38, 50, 19, QStringLiteral("Code"));
    codeBox = new QLineEdit(this);
    codeBox->setGeometry(62, 38, 168, 19);
    codeBox->setMaxLength(kCodeLength);
    error_ = ui::makeLabel(this, 10, 62, kWidth - 20, 28, QString(), Qt::AlignCenter);
    error_->setWordWrap(true);
    joinButton = new QPushButton(QStringLiteral("Join"), this);
    joinButton->setGeometry(57, 94, 57, 21);
    cancelButton = new QPushButton(QStringLiteral("Cancel"), this);
    cancelButton->setGeometry(126, 94, 57, 21);
    QObject::connect(joinButton, &QPushButton::clicked, this, [this] { join(); });
    QObject::connect(cancelButton, &QPushButton::clicked, this, [this] { cancel(); });
    // Enter in either box is "Join", as in the player selection's name box.
    QObject::connect(addressBox, &QLineEdit::returnPressed, this, [this] { join(); });
    QObject::connect(codeBox, &QLineEdit::returnPressed, this, [this] { join(); });
    onClose = [this] { cancel(); };
    addressBox->setFocus();
}

void JoinDialog::join() {
    const QString address = addressBox->text().trimmed();
    const QString code = codeBox->text().trimmed();
    QLineEdit* missing = address.isEmpty() ? addressBox : code.isEmpty() ? codeBox : nullptr;
    if (missing) {
        ui::showMessage(missing == addressBox ? QStringLiteral("Enter the host's address")
                                              : QStringLiteral("Enter the join code"),
                        gameTitle());
        // The keyboard goes back to what is missing, as after the player selection's message.
        ui::giveFocus(this);
        missing->setFocus();
        return;
    }
    error_->clear();
    if (onJoin) onJoin(address, code);
}

void JoinDialog::cancel() {
    if (onCancel) onCancel();
}

void JoinDialog::showError(const QString& text) { error_->setText(text); }

QString JoinDialog::error() const { return error_->text(); }

}  // namespace screens
