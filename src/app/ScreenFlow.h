#pragma once
// The screens and the way from one to the next: title, setup, player selection, the match with
// its pause and game-over box, credits, and back to the title. The flow holds what outlives a
// screen: the options, the players' names, characters and seats, what a match leaves to the next
// one.
#include <QPointer>
#include <array>
#include <functional>
#include <memory>
#include <optional>

#include "core/DataFolder.h"
#include "game/Match.h"
#include "game/Record.h"
#include "game/Replay.h"
#include "media/Sound.h"
#include "net/Guest.h"
#include "net/Host.h"
#include "screens/CreditsScreen.h"
#include "screens/JoinDialog.h"
#include "screens/MatchBox.h"
#include "screens/MatchView.h"
#include "screens/Pictures.h"
#include "screens/PlayerScreen.h"
#include "screens/SetupScreen.h"
#include "screens/TitleScreen.h"
#include "screens/WaitingBox.h"
#include "ui/Keyboard.h"

namespace app {

struct Services {
    media::Sound& sound;
    ui::Keyboard& keys;
    core::DataFolder data;
    // The seed of the next match's random numbers.
    std::function<std::uint64_t()> seed;
    // Ends the program.
    std::function<void()> quit;
    // Keeps the record of a match that was left or finished; none keeps no records.
    std::function<void(const game::Record&)> keepRecord = {};
    // Matches with other computers: the seats left to them at first, the port, the join code
    // to give out (none: one is drawn), and this machine's game version and data.
    std::array<bool, 4> remote = {};
    quint16 port = net::kDefaultPort;
    std::optional<QString> code = {};
    QString version = {};
    std::vector<net::FileDigest> dataDigest = {};
};

class ScreenFlow {
public:
    // `seats` says which players' seats the computer takes at first.
    explicit ScreenFlow(Services services, const std::array<screens::Seat, 4>& seats = {});
    ~ScreenFlow();
    ScreenFlow(const ScreenFlow&) = delete;
    ScreenFlow& operator=(const ScreenFlow&) = delete;

    // The program starts on the title screen.
    void start();
    // Or joins the match held open at `address` with `code`: the joiner's player page, and the
    // match once the host starts it. The computer plays the joiner's seat at `computer`'s skill.
    void join(const QString& address, const QString& code, screens::Seat computer = {});
    // Or with a match played again from its record, which goes on as a match would once it
    // ends: the game-over box, and the title, the credits or the program's end.
    void startReplay(const game::MatchSetup& setup, game::Replay replay);

    // The screens open now, none where a screen is not.
    screens::TitleScreen* title() const { return title_; }
    screens::SetupScreen* setup() const { return setup_; }
    screens::PlayerScreen* players() const { return players_; }
    screens::MatchView* match() const { return match_; }
    screens::MatchBox* box() const { return box_; }
    screens::CreditsScreen* credits() const { return credits_; }
    screens::WaitingBox* waiting() const { return waiting_; }
    screens::JoinDialog* joinDialog() const { return joinDialog_; }
    net::Host* host() const { return host_.get(); }
    net::Guest* guest() const { return guest_.get(); }
    const game::MatchSettings& settings() const { return settings_; }

private:
    // A screen that is done goes once the handler that ended it has returned.
    template <class Screen>
    static void dismiss(QPointer<Screen>& screen) {
        if (screen) {
            screen->hide();
            screen->deleteLater();
        }
        screen.clear();
    }
    void showTitle();
    void showSetup();
    void showPlayers();
    void closePlayers();
    game::MatchSetup chosenSetup();
    void startMatch();
    void openMatch(game::MatchSetup setup);
    // Why this machine leaves a match with others, as they are told.
    QString leaving() const;
    // Matches with other computers (ScreenFlowNet.cpp).
    bool anyRemote() const;
    void openLobby();
    void showLobby();
    void lobbyChanged();
    void closeLobby();
    void showJoinDialog();
    void welcomed(int seat, const net::Lobby& lobby);
    void startNetworkMatch(const net::Lobby& lobby);
    void networkEnded(const QString& why);
    void joinerLeft(int seat, const QString& name, const QString& why);
    void leaveNetwork(const QString& why);
    void showBox(screens::MatchBox::Kind kind);
    void choose(screens::MatchBox::Choice choice);
    void leaveMatch();
    void showCredits();
    void quit();

    Services services_;
    screens::Pictures pictures_;
    game::MatchSettings settings_;
    std::array<QString, 4> names_, characters_;
    // Who plays each seat: as the command line said when a page opens, as chosen on it after.
    const std::array<screens::Seat, 4> presetSeats_;
    std::array<screens::Seat, 4> seats_;
    std::array<bool, 4> remote_{};
    // The network seats whose joiners have chosen their name and character.
    std::array<bool, 4> chosen_{};
    game::Carry carry_;
    std::unique_ptr<net::Host> host_;
    std::unique_ptr<net::Guest> guest_;
    // The joiner's own seat and who plays it at his machine.
    int joinSeat_ = -1;
    screens::Seat joinComputer_;
    int danceFrame_ = 0;

    QPointer<screens::TitleScreen> title_;
    QPointer<screens::SetupScreen> setup_;
    QPointer<screens::PlayerScreen> players_;
    QPointer<screens::MatchView> match_;
    QPointer<screens::MatchBox> box_;
    QPointer<screens::CreditsScreen> credits_;
    QPointer<screens::WaitingBox> waiting_;
    QPointer<screens::JoinDialog> joinDialog_;
};

}  // namespace app
