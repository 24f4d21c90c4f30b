#pragma once
// Player selection: each player in turn types a name and picks a character from the characters
// folder, with a preview and the character's own sound. Two hidden characters join the list
// when someone types their secret name. Any player's seat may be taken by the computer, or left
// to a player at another computer, who chooses his name and character there: the joiner's own
// pass of this screen is one pass for that seat alone.
#include <QStringList>
#include <array>
#include <functional>
#include <optional>

#include "core/Colour.h"
#include "core/DataFolder.h"
#include "game/Settings.h"
#include "media/Sound.h"
#include "ui/Window.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
namespace ui {
class ArrowControl;
class CanvasWidget;
}  // namespace ui

namespace screens {

// Who plays a seat: a person, or the computer at a skill.
using Seat = std::optional<game::Skill>;

class PlayerScreen : public ui::Window {
public:
    PlayerScreen(const core::DataFolder& data, media::Sound& sound);
    // The passes start again with player 1, for a game of `players` players whose seats are
    // offered as `seats` says; the seats `remote` marks start ticked as played elsewhere.
    void begin(int players, const std::array<Seat, 4>& seats,
               const std::array<bool, 4>& remote = {});
    // The joiner's pass: seat `seat` only, never played elsewhere, first offering a character
    // none of `wornElsewhere` (the other seats' characters).
    void beginJoiner(int seat, const QStringList& wornElsewhere);
    void next();
    void back();
    int pass() const { return pass_; }
    const QStringList& characters() const { return list_; }

    struct Choice {
        int player;  // 0 to 3
        QString name;
        QString character;
        Seat seat;
        // Played at another computer: the name and character come from there, so both are empty.
        bool remote = false;
    };
    std::function<void(const Choice&)> onChosen;
    // The last player of the game has chosen.
    std::function<void()> onDone;
    std::function<void()> onBack;

    QLineEdit* nameBox = nullptr;
    QPushButton* backButton = nullptr;
    QPushButton* nextButton = nullptr;
    ui::ArrowControl* browser = nullptr;
    QLineEdit* characterBox = nullptr;
    ui::CanvasWidget* preview = nullptr;
    QCheckBox* computerBox = nullptr;
    QComboBox* skillBox = nullptr;
    QCheckBox* networkBox = nullptr;

private:
    void showPreview(const QString& character);
    void showNoCharacters();
    void typed(char16_t key);
    void unlock(const QString& hidden);
    void createSeat();
    void showSeat();
    void offerUnworn();
    void chooseUnworn();
    void showRemote(bool remote);
    void fitRows(bool withNetworkRow);
    void nextPass();

    core::DataFolder data_;
    media::Sound& sound_;
    core::Colour background_;
    QStringList list_;
    QLabel* noCharacters_ = nullptr;
    int players_ = 2;
    std::array<Seat, 4> seats_{};
    std::array<bool, 4> remote_{};
    bool joiner_ = false;
    // The characters of the earlier passes.
    QStringList worn_;
    int pass_ = 0;
};

}  // namespace screens
