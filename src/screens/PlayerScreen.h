#pragma once
// Player selection: each player in turn types a name and picks a character from the characters
// folder, with a preview and the character's own sound. Two hidden characters join the list
// when someone types their secret name.
#include <QStringList>
#include <functional>

#include "core/Colour.h"
#include "core/DataFolder.h"
#include "media/Sound.h"
#include "ui/Window.h"

class QLabel;
class QLineEdit;
class QPushButton;
namespace ui {
class ArrowControl;
class CanvasWidget;
}  // namespace ui

namespace screens {

class PlayerScreen : public ui::Window {
public:
    PlayerScreen(const core::DataFolder& data, media::Sound& sound);
    // The passes start again with player 1, for a game of `players` players.
    void begin(int players);
    void next();
    void back();
    int pass() const { return pass_; }
    const QStringList& characters() const { return list_; }

    // A player chose: his index (0 to 3), his name and his character.
    std::function<void(int, const QString&, const QString&)> onChosen;
    // The last player of the game has chosen.
    std::function<void()> onDone;
    std::function<void()> onBack;

    QLineEdit* nameBox = nullptr;
    QPushButton* backButton = nullptr;
    QPushButton* nextButton = nullptr;
    ui::ArrowControl* browser = nullptr;
    QLineEdit* characterBox = nullptr;
    ui::CanvasWidget* preview = nullptr;

private:
    void showPreview(const QString& character);
    void showNoCharacters();
    void typed(char16_t key);
    void unlock(const QString& hidden);

    core::DataFolder data_;
    media::Sound& sound_;
    core::Colour background_;
    QStringList list_;
    QLabel* noCharacters_ = nullptr;
    int players_ = 2;
    int pass_ = 0;
};

}  // namespace screens
