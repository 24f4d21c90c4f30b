// The screen flow of matches with other computers: the host's lobby, which waits until every
// network seat is taken, and the joiner's way from the address and code to his player page, the
// wait for the host and the match.
#include <QCheckBox>
#include <QHostAddress>
#include <QNetworkInterface>
#include <QRandomGenerator>
#include <algorithm>

#include "app/ScreenFlow.h"
#include "game/Characters.h"
#include "net/JoinCode.h"
#include "ui/MessageBox.h"

namespace app {

namespace {
const QString kNetworkTitle = QStringLiteral("Network Match");

// The addresses others may reach this machine at: its own network's first, this machine last.
QStringList ownAddresses() {
    QStringList found;
    for (const QHostAddress& a : QNetworkInterface::allAddresses())
        if (a.protocol() == QAbstractSocket::IPv4Protocol && !a.isLoopback()) found << a.toString();
    found << QStringLiteral("127.0.0.1");
    return found;
}

// What the waiting box says of a network seat, after its "Player N".
QString seatLine(const game::SeatRecord& s, bool taken, bool chosen) {
    QString who = QStringLiteral("waiting...");
    if (chosen) who = s.name + QStringLiteral(", ") + s.character;
    else if (taken) who = QStringLiteral("joined, choosing...");
    return who;
}

// "Bo left the match", and why, unless the reason says no more than that.
QString leftText(int seat, const QString& name, const QString& why) {
    const QString who = name.isEmpty() ? QStringLiteral("Player %1").arg(seat + 1) : name;
    QString text = QStringLiteral("%1 left the match").arg(who);
    if (!why.contains(QLatin1String("left the match"))) text += QStringLiteral(" (%1)").arg(why);
    return text;
}
}  // namespace

bool ScreenFlow::anyRemote() const {
    for (int i = 0; i < settings_.players(); ++i)
        if (remote_[static_cast<std::size_t>(i)]) return true;
    return false;
}

QString ScreenFlow::leaving() const {
    if (joinSeat_ >= 0)
        return QStringLiteral("%1 left the match").arg(names_[static_cast<std::size_t>(joinSeat_)]);
    return QStringLiteral("the host ended the match");
}

void ScreenFlow::openLobby() {
    net::Lobby lobby;
    lobby.setup = game::recordOf(game::Match(chosenSetup()));
    for (int i = 0; i < settings_.players(); ++i) {
        const auto k = static_cast<std::size_t>(i);
        lobby.remote[k] = remote_[k];
        // Until its joiner chooses, a seat holds what any record may: a name and a character.
        if (remote_[k])
            lobby.setup.seats[k] = {QStringLiteral("Player %1").arg(i + 1),
                                    QLatin1String(game::kKnownCharacters[0].name),
                                    {}};
        chosen_[k] = false;
    }
    host_ = std::make_unique<net::Host>(services_.version, services_.dataDigest);
    QRandomGenerator random = QRandomGenerator::securelySeeded();
    const QString code = services_.code.value_or(net::makeJoinCode(random));
    if (!host_->open(lobby, code, services_.port)) {
        ui::showMessage(host_->error(), kNetworkTitle);
        host_.reset();
        showPlayers();
        return;
    }
    QObject::connect(host_.get(), &net::Host::joined, host_.get(), [this] { lobbyChanged(); });
    QObject::connect(host_.get(), &net::Host::seatChosen, host_.get(), [this](int seat) {
        chosen_[static_cast<std::size_t>(seat)] = true;
        lobbyChanged();
    });
    QObject::connect(
        host_.get(), &net::Host::left, host_.get(),
        [this](int seat, const QString& name, const QString& why) { joinerLeft(seat, name, why); });
    waiting_ = new screens::WaitingBox;
    waiting_->setAddress(ownAddresses(), host_->port());
    waiting_->setCode(code);
    waiting_->onCancel = [this] { closeLobby(); };
    lobbyChanged();
    waiting_->showCentred();
}

void ScreenFlow::lobbyChanged() {
    if (!host_ || !waiting_) return;
    const net::Lobby& lobby = host_->lobby();
    bool ready = true;
    for (int i = 0; i < settings_.players(); ++i) {
        const auto k = static_cast<std::size_t>(i);
        if (!lobby.remote[k]) continue;
        if (!host_->taken(i)) chosen_[k] = false;
        waiting_->setSeat(i, seatLine(lobby.setup.seats[k], host_->taken(i), chosen_[k]));
        ready = ready && chosen_[k];
    }
    if (!ready || !host_->start()) return;
    dismiss(waiting_);
    startNetworkMatch(host_->lobby());
}

void ScreenFlow::closeLobby() {
    dismiss(waiting_);
    leaveNetwork(QStringLiteral("the host cancelled the match"));
    showPlayers();
}

void ScreenFlow::showJoinDialog() {
    if (joinDialog_) return joinDialog_->raise();
    joinDialog_ = new screens::JoinDialog;
    joinDialog_->onJoin = [this](const QString& address, const QString& code) {
        dismiss(joinDialog_);
        dismiss(title_);
        join(address, code);
    };
    joinDialog_->onCancel = [this] { dismiss(joinDialog_); };
    joinDialog_->showCentred();
}

void ScreenFlow::join(const QString& address, const QString& code, screens::Seat computer) {
    guest_ = std::make_unique<net::Guest>(services_.version, services_.dataDigest);
    joinComputer_ = computer;
    joinSeat_ = -1;
    net::Guest& g = *guest_;
    QObject::connect(&g, &net::Guest::welcomed, &g,
                     [this](int seat, const net::Lobby& lobby) { welcomed(seat, lobby); });
    QObject::connect(&g, &net::Guest::started, &g,
                     [this](const net::Lobby& lobby) { startNetworkMatch(lobby); });
    QObject::connect(&g, &net::Guest::refused, &g, [this](const QString& why) {
        networkEnded(QStringLiteral("Could not join the match: ") + why);
    });
    QObject::connect(&g, &net::Guest::hostLeft, &g, [this](const QString& why) {
        networkEnded(QStringLiteral("The host left the match: ") + why);
    });
    QObject::connect(&g, &net::Guest::otherLeft, &g, [this](int seat, const QString& why) {
        // The host pauses the match and decides whether his computer plays the seat; after the
        // final board nothing is left to play.
        if (!match_ || match_->match().over()) return;
        ui::showMessage(leftText(seat, names_[static_cast<std::size_t>(seat)], why) +
                            QStringLiteral(". The host decides whether the match goes on."),
                        kNetworkTitle);
    });
    waiting_ = new screens::WaitingBox;
    waiting_->setMessage(QStringLiteral("Joining %1...").arg(address));
    waiting_->onCancel = [this] {
        dismiss(waiting_);
        leaveNetwork(QStringLiteral("the player cancelled"));
        showTitle();
    };
    waiting_->showCentred();
    g.join(address, code, QStringLiteral("Player"));
}

void ScreenFlow::welcomed(int seat, const net::Lobby& lobby) {
    settings_ = lobby.setup.settings;
    if (waiting_) waiting_->setSettings(settings_);
    if (joinSeat_ >= 0) return;  // the lobby changed: someone else chose
    joinSeat_ = seat;
    dismiss(waiting_);
    QStringList worn;
    for (std::size_t k = 0; k < lobby.setup.seats.size(); ++k)
        if (!lobby.remote[k] && !lobby.setup.seats[k].character.isEmpty())
            worn << lobby.setup.seats[k].character;
    showPlayers();
    players_->beginJoiner(seat, worn);
    // The joiner's --computer ticks his own page's box.
    players_->computerBox->setChecked(joinComputer_.has_value());
}

void ScreenFlow::showLobby() {
    waiting_ = new screens::WaitingBox;
    waiting_->setMessage(QStringLiteral("Waiting for the host to start the match..."));
    waiting_->setSettings(settings_);
    waiting_->onCancel = [this] {
        dismiss(waiting_);
        leaveNetwork(QStringLiteral("the player cancelled"));
        showTitle();
    };
    waiting_->showCentred();
}

void ScreenFlow::startNetworkMatch(const net::Lobby& lobby) {
    dismiss(waiting_);
    dismiss(players_);
    game::MatchSetup setup = game::setupOf(lobby.setup);
    settings_ = setup.settings;
    for (int i = 0; i < settings_.players(); ++i) {
        const auto k = static_cast<std::size_t>(i);
        names_[k] = setup.players[k].name;
        characters_[k] = setup.players[k].character;
    }
    openMatch(setup);
    match_->onNetworkBroken = [this](const QString& why) { networkEnded(why); };
    if (host_) {
        std::array<bool, 4> local{};
        for (std::size_t k = 0; k < local.size(); ++k) local[k] = !lobby.remote[k];
        match_->hostNetwork(*host_, local);
    } else if (guest_) {
        match_->joinNetwork(*guest_, joinSeat_, joinComputer_);
    }
}

void ScreenFlow::joinerLeft(int seat, const QString& name, const QString& why) {
    if (!match_) return lobbyChanged();
    // After the final board nothing is left to play.
    if (match_->match().over()) return;
    // The match stands still on every machine; the computer plays the seat if it goes on, and
    // "Start Over" or "Quit" end it.
    match_->takeOver(seat);
    match_->pause();
    ui::showMessage(leftText(seat, name, why) +
                        QStringLiteral(". The computer plays his seat if you resume; Start "
                                       "Over or Quit end the match."),
                    kNetworkTitle);
}

void ScreenFlow::networkEnded(const QString& why) {
    // Whatever stands goes: the lobby, the page, the match and its box; the title comes back.
    if (match_) leaveMatch();
    leaveNetwork(why);
    dismiss(waiting_);
    dismiss(players_);
    ui::showMessage(why, kNetworkTitle);
    if (!title_) showTitle();
}

void ScreenFlow::leaveNetwork(const QString& why) {
    if (host_) {
        host_->disconnect();
        host_->close(why);
        host_.reset();
    }
    if (guest_) {
        guest_->disconnect();
        guest_->leave(why);
        guest_.reset();
    }
    joinSeat_ = -1;
}

}  // namespace app
