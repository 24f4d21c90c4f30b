#include "app/ScreenFlow.h"

#include <algorithm>

namespace app {

ScreenFlow::ScreenFlow(Services services, const std::array<screens::Seat, 4>& seats)
    : services_(std::move(services)),
      pictures_(services_.data),
      presetSeats_(seats),
      seats_(seats),
      remote_(services_.remote) {}

ScreenFlow::~ScreenFlow() {
    for (QWidget* w : std::initializer_list<QWidget*>{box_, match_, credits_, players_, setup_,
                                                      title_, waiting_, joinDialog_})
        delete w;
}

void ScreenFlow::start() { showTitle(); }

void ScreenFlow::quit() { services_.quit(); }

void ScreenFlow::showTitle() {
    title_ = new screens::TitleScreen(services_.data, services_.sound, danceFrame_);
    title_->onStart = [this] {
        danceFrame_ = title_->danceFrame();
        showSetup();
        dismiss(title_);
    };
    // "Exit", or the close box of the only screen there is.
    title_->onExit = title_->onClose = [this] { quit(); };
    title_->onJoin = [this] { showJoinDialog(); };
    title_->showCentred();
}

void ScreenFlow::showSetup() {
    // The setup screen offers the usual game type, time of day and gravity at once.
    const game::MatchSettings usual;
    settings_.gravity = usual.gravity;
    settings_.gameType = usual.gameType;
    settings_.timeOfDay = usual.timeOfDay;
    setup_ = new screens::SetupScreen;
    setup_->onGameType = [this](game::GameType t) { settings_.gameType = t; };
    setup_->onTimeOfDay = [this](game::TimeOfDay t) { settings_.timeOfDay = t; };
    setup_->onNext = [this](const game::MatchSettings& s) {
        settings_ = s;
        showPlayers();
        dismiss(setup_);
    };
    // Players who went back from player selection left it hidden; closing the setup screen closes
    // it too, and that decides between a match and the program's end.
    setup_->onClose = [this] {
        dismiss(setup_);
        if (players_) closePlayers();
        else quit();
    };
    setup_->showCentred();
}

void ScreenFlow::showPlayers() {
    if (!players_) {
        players_ = new screens::PlayerScreen(services_.data, services_.sound);
        players_->onChosen = [this](const screens::PlayerScreen::Choice& c) {
            const auto k = static_cast<std::size_t>(c.player);
            names_[k] = c.name;
            characters_[k] = c.character;
            seats_[k] = c.seat;
            remote_[k] = c.remote;
            // A joiner's choice goes to the host, who shows it on every machine.
            if (guest_) {
                joinComputer_ = c.seat;
                guest_->chooseSeat(c.name, c.character);
            }
        };
        players_->onDone = [this] {
            dismiss(players_);
            if (guest_) showLobby();
            else if (anyRemote()) openLobby();
            else startMatch();
        };
        players_->onBack = [this] {
            if (guest_) {
                leaveNetwork(QStringLiteral("the player went back"));
                dismiss(players_);
                showTitle();
                return;
            }
            showSetup();
            players_->hide();
        };
        players_->onClose = [this] { closePlayers(); };
    }
    players_->begin(settings_.players(), presetSeats_, services_.remote);
    players_->showCentred();
}

void ScreenFlow::closePlayers() {
    dismiss(players_);
    // Names and characters left from an earlier match of the run count as chosen.
    const auto first = characters_.begin();
    if (std::none_of(first, first + settings_.players(),
                     [](const QString& c) { return c.isEmpty(); }))
        startMatch();
    else quit();
}

game::MatchSetup ScreenFlow::chosenSetup() {
    game::MatchSetup setup;
    setup.settings = settings_;
    for (int i = 0; i < settings_.players(); ++i) {
        const auto k = static_cast<std::size_t>(i);
        setup.players[k] = {names_[k], characters_[k], {}, seats_[k]};
    }
    setup.seed = services_.seed();
    setup.carry = carry_;
    return setup;
}

void ScreenFlow::startMatch() { openMatch(chosenSetup()); }

void ScreenFlow::openMatch(game::MatchSetup setup) {
    for (game::PlayerSetup& p : setup.players)
        if (!p.character.isEmpty()) p.art = pictures_.character(p.character);
    setup.marker = pictures_.marker();
    match_ = new screens::MatchView(setup, services_.sound, services_.keys, services_.data);
    match_->onPaused = [this] { showBox(screens::MatchBox::Kind::Paused); };
    match_->onGameOver = [this] { showBox(screens::MatchBox::Kind::GameOver); };
    // Closing the match window during a match ends the program.
    match_->onClose = [this] {
        leaveMatch();
        quit();
    };
    match_->showCentred();
}

void ScreenFlow::showBox(screens::MatchBox::Kind kind) {
    dismiss(box_);
    box_ = new screens::MatchBox(match_, kind);
    box_->onChoice = [this](screens::MatchBox::Choice c) { choose(c); };
}

void ScreenFlow::choose(screens::MatchBox::Choice choice) {
    using Choice = screens::MatchBox::Choice;
    dismiss(box_);
    switch (choice) {
        case Choice::Resume: match_->resume(); return;
        case Choice::StartOver: showSetup(); break;
        case Choice::PlayAgain: showTitle(); break;
        case Choice::ViewCredits: showCredits(); break;
        case Choice::Quit: break;
    }
    leaveMatch();
    if (choice == Choice::Quit) quit();
}

void ScreenFlow::startReplay(const game::MatchSetup& setup, game::Replay replay) {
    match_ = new screens::MatchView(setup, services_.sound, services_.keys, services_.data);
    match_->playBack(std::move(replay));
    match_->onGameOver = [this] { showBox(screens::MatchBox::Kind::GameOver); };
    match_->onReplayEnded = match_->onClose = [this] {
        dismiss(match_);
        quit();
    };
    match_->showCentred();
}

void ScreenFlow::leaveMatch() {
    if (!match_) return;
    if (!match_->replaying() && services_.keepRecord) {
        match_->send({.kind = game::Command::Kind::Leave});
        services_.keepRecord(game::recordOf(match_->match()));
    }
    leaveNetwork(leaving());
    carry_ = match_->match().carry();
    dismiss(box_);
    dismiss(match_);
}

void ScreenFlow::showCredits() {
    credits_ = new screens::CreditsScreen(services_.data);
    credits_->onLeave = credits_->onClose = [this] {
        dismiss(credits_);
        showTitle();
    };
    credits_->showCentred();
}

}  // namespace app
