#pragma once
// Joining a match that another computer hosts: the host's address, with its port or without,
// and the code the host's waiting box shows. The dialog only collects them; whoever opened it
// connects, and shows here why a try failed. Closing the dialog cancels, the same as "Cancel".
#include <QString>
#include <functional>

#include "ui/Window.h"

class QLabel;
class QLineEdit;
class QPushButton;

namespace screens {

class JoinDialog : public ui::Window {
public:
    explicit JoinDialog(QWidget* owner = nullptr);
    // Asks for whichever box is empty, otherwise passes both on, without surrounding spaces.
    void join();
    void cancel();
    // Why the last try failed, under the boxes; the next try clears it.
    void showError(const QString& text);
    QString error() const;

    // HOST or HOST:PORT, and the code.
    std::function<void(const QString& address, const QString& code)> onJoin;
    std::function<void()> onCancel;

    QLineEdit* addressBox = nullptr;
    QLineEdit* codeBox = nullptr;
    QPushButton* joinButton = nullptr;
    QPushButton* cancelButton = nullptr;

private:
    QLabel* error_ = nullptr;
};

}  // namespace screens
