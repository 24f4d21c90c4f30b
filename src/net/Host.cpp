#include "net/Host.h"

#include <QTcpSocket>
#include <algorithm>

#include "net/DataDigest.h"
#include "net/JoinCode.h"
#include "ui/Clock.h"

namespace net {

namespace {
// Digests of turns long past matter no more; a peer cannot make the host keep more.
constexpr std::size_t kKeptDigests = 64;

void keepRecent(std::map<int, std::uint64_t>& digests) {
    while (digests.size() > kKeptDigests) digests.erase(digests.begin());
}

QString player(int seat) { return QStringLiteral("player %1").arg(seat + 1); }
}  // namespace

Host::Host(QString gameVersion, std::vector<FileDigest> data, QObject* parent)
    : QObject(parent),
      version_(std::move(gameVersion)),
      data_(std::move(data)),
      ticks_(kTickMs, [this] { sendTick(); }),
      silence_(kSilentTurnMs,
               [this] {
                   if (Peer* p = peerOf(turn_))
                       drop(*p,
                            QStringLiteral("nothing heard from %1's computer for %2 s in his turn")
                                .arg(p->name)
                                .arg(kSilentTurnMs / 1000));
               }),
      greetings_(1000, [this] { dropSlowGreeters(); }) {
    connect(&server_, &QTcpServer::pendingConnectionAvailable, this, &Host::onConnection);
}

Host::~Host() { close(QStringLiteral("the host closed the match")); }

bool Host::open(const Lobby& lobby, const QString& code, quint16 port) {
    close(QStringLiteral("the host opened another match"));
    if (std::none_of(lobby.remote.begin(), lobby.remote.end(), [](bool r) { return r; }))
        return error_ = QStringLiteral("no seat is open to other computers"), false;
    if (!server_.listen(QHostAddress::Any, port))
        return error_ = QStringLiteral("cannot listen on port %1: %2")
                            .arg(port)
                            .arg(server_.errorString()),
               false;
    offered_ = lobby_ = lobby;
    code_ = code;
    error_.clear();
    ownDigests_.clear();
    lastStamp_ = lastTick_ = 0;
    greetings_.setEnabled(true);
    return true;
}

bool Host::taken(int seat) const {
    return std::any_of(peers_.begin(), peers_.end(),
                       [&](const auto& p) { return p->seat == seat && seat >= 0; });
}

bool Host::start() {
    if (!server_.isListening()) return error_ = QStringLiteral("no match is open"), false;
    for (int s = 0; s < 4; ++s)
        if (lobby_.remote[static_cast<std::size_t>(s)] && !taken(s))
            return error_ = QStringLiteral("%1's seat waits for a joiner").arg(player(s)), false;
    server_.close();
    started_ = true;
    std::vector<Peer*> greeting;
    for (const auto& p : peers_)
        if (p->seat < 0) greeting.push_back(p.get());
    for (Peer* p : greeting) drop(*p, QStringLiteral("the match has begun"));
    for (const auto& p : peers_) p->link->send(Start{lobby_});
    lastTick_ = lastStamp_ = now();
    ticks_.setEnabled(true);
    watchTurn();
    return true;
}

void Host::close(const QString& reason) {
    server_.close();
    greetings_.setEnabled(false);
    ticks_.setEnabled(false);
    silence_.setEnabled(false);
    started_ = false;
    for (const auto& p : peers_) {
        disconnect(p->link, nullptr, this, nullptr);
        p->link->close(p->seat < 0 ? Message(Refused{reason}) : Message(Bye{reason}));
        p->link->deleteLater();
    }
    peers_.clear();
}

void Host::setTurn(int seat) {
    turn_ = seat;
    watchTurn();
}

void Host::watchTurn() {
    // Restarting counts the silence from now.
    silence_.setEnabled(started_ && peerOf(turn_) != nullptr);
}

bool Host::send(game::Command command) {
    if (!started_ || command.seat < 0 || command.seat >= lobby_.setup.settings.players() ||
        lobby_.remote[static_cast<std::size_t>(command.seat)])
        return false;
    relay(command);
    return true;
}

void Host::takeOver(int seat) {
    if (seat < 0 || seat >= 4 || peerOf(seat)) return;
    lobby_.remote[static_cast<std::size_t>(seat)] = false;
}

void Host::relay(game::Command command) {
    // Never before what the joiners were already told they may run to.
    command.at = std::max({now(), lastStamp_, lastTick_});
    lastStamp_ = command.at;
    for (const auto& p : peers_)
        if (p->seat >= 0) p->link->send(CommandMessage{command});
    emit this->command(command);
}

void Host::sendTick() {
    const std::optional<int> due = tickDue(pace_, now(), lastTick_);
    if (!due) return;
    const int at = std::max(*due, lastStamp_);
    if (at <= lastTick_) return;
    lastTick_ = at;
    for (const auto& p : peers_)
        if (p->seat >= 0) p->link->send(Tick{at});
}

void Host::submitDigest(int at, std::uint64_t hash) {
    ownDigests_[at] = hash;
    keepRecent(ownDigests_);
    for (const auto& p : peers_) {
        if (p->seat < 0) continue;
        p->link->send(Digest{at, hash});
        compare(*p, at);
    }
}

void Host::compare(Peer& peer, int at) {
    const auto own = ownDigests_.find(at);
    const auto theirs = peer.digests.find(at);
    if (own == ownDigests_.end() || theirs == peer.digests.end()) return;
    const bool differ = own->second != theirs->second;
    peer.digests.erase(theirs);
    if (differ) emit digestMismatch(peer.seat, at);
}

qint64 Host::bufferedBytes() const {
    qint64 total = 0;
    for (const auto& p : peers_) total += p->link->buffered();
    return total;
}

Host::Peer* Host::peerOf(int seat) {
    for (const auto& p : peers_)
        if (seat >= 0 && p->seat == seat) return p.get();
    return nullptr;
}

void Host::dropSlowGreeters() {
    std::vector<Peer*> slow;
    for (const auto& p : peers_)
        if (p->seat < 0 && ui::ticksSince(p->since, ui::clock().tickCount()) >= kGreetingMs)
            slow.push_back(p.get());
    for (Peer* p : slow) drop(*p, QStringLiteral("no hello within %1 s").arg(kGreetingMs / 1000));
}

void Host::onConnection() {
    while (QTcpSocket* socket = server_.nextPendingConnection()) {
        const auto greeting =
            std::count_if(peers_.begin(), peers_.end(), [](const auto& p) { return p->seat < 0; });
        if (started_ || greeting >= kMostGreeting) {
            socket->abort();
            socket->deleteLater();
            continue;
        }
        auto peer = std::make_unique<Peer>();
        Peer* p = peer.get();
        p->link = new Link(socket, kLargestGreeting, this);
        p->since = ui::clock().tickCount();
        connect(p->link, &Link::received, this, [this, p](const Message& m) { onMessage(*p, m); });
        connect(p->link, &Link::broken, this, [this, p](const QString& why) { drop(*p, why); });
        connect(p->link, &Link::lost, this, [this, p](const QString& why) { forget(*p, why); });
        peers_.push_back(std::move(peer));
    }
}

void Host::onMessage(Peer& peer, const Message& message) {
    if (started_ && peer.seat >= 0 && peer.seat == turn_) watchTurn();
    const auto outOfOrder = [&](const char* when) {
        drop(peer,
             QStringLiteral("\"%1\" %2").arg(QLatin1String(kindOf(message)), QLatin1String(when)));
    };
    const bool seated = peer.seat >= 0;
    if (const auto* hello = std::get_if<Hello>(&message)) {
        if (seated) return outOfOrder("a second time");
        greet(peer, *hello);
    } else if (const auto* choice = std::get_if<SeatChoice>(&message)) {
        if (!seated) return outOfOrder("before hello");
        if (started_) return outOfOrder("after the start");
        game::SeatRecord& seat = lobby_.setup.seats[static_cast<std::size_t>(peer.seat)];
        peer.name = seat.name = choice->name;
        seat.character = choice->character;
        // Everyone hears of the choice before whatever it sets off here, the start included.
        sendLobby();
        emit seatChosen(peer.seat, seat.name, seat.character);
    } else if (const auto* c = std::get_if<CommandMessage>(&message)) {
        if (!seated) return outOfOrder("before hello");
        if (!started_) return outOfOrder("before the start");
        if (c->command.seat != peer.seat)
            return drop(peer, QStringLiteral("a command for %1, whose seat is not yours")
                                  .arg(player(c->command.seat)));
        relay(c->command);
    } else if (const auto* d = std::get_if<Digest>(&message)) {
        if (!seated || !started_) return outOfOrder("before the start");
        takeDigest(peer, *d);
    } else if (std::holds_alternative<Tick>(message)) {
        // A joiner's sign of life; how far his match has run is his own affair.
        if (!seated || !started_) return outOfOrder("before the start");
    } else if (const auto* bye = std::get_if<Bye>(&message)) {
        peer.link->close(Bye{QStringLiteral("goodbye")});
        forget(peer, bye->reason.isEmpty() ? QStringLiteral("left") : bye->reason);
    } else {
        outOfOrder("from a joiner, which only the host sends");
    }
}

void Host::greet(Peer& peer, const Hello& hello) {
    QString refusal;
    if (hello.protocol != kProtocolVersion)
        refusal = QStringLiteral("the host speaks network version %1, the joining computer %2")
                      .arg(kProtocolVersion)
                      .arg(hello.protocol);
    else if (hello.game != version_)
        refusal = QStringLiteral("the host plays version %1 of the game, the joining computer %2")
                      .arg(version_, hello.game);
    else if (!sameJoinCode(hello.code, code_)) refusal = QStringLiteral("wrong join code");
    else if (const QString d = dataDifference(data_, hello.data); !d.isEmpty())
        refusal = QStringLiteral("the game's data differs: ") + d;
    int seat = -1;
    for (int s = 3; s >= 0; --s)
        if (lobby_.remote[static_cast<std::size_t>(s)] && !taken(s)) seat = s;
    if (refusal.isEmpty() && seat < 0) refusal = QStringLiteral("the match is full");
    if (!refusal.isEmpty()) return drop(peer, refusal);

    peer.seat = seat;
    peer.name = lobby_.setup.seats[static_cast<std::size_t>(seat)].name = hello.name;
    peer.link->setLargest(kLargestMessage);
    sendLobby();
    emit joined(seat, peer.name);
}

void Host::takeDigest(Peer& peer, const Digest& digest) {
    if (digest.at < peer.lastDigest)
        return drop(peer, QStringLiteral("a digest older than the last"));
    peer.lastDigest = digest.at;
    peer.digests[digest.at] = digest.hash;
    keepRecent(peer.digests);
    compare(peer, digest.at);
}

void Host::sendLobby() {
    for (const auto& p : peers_)
        if (p->seat >= 0) p->link->send(Welcome{p->seat, lobby_});
}

void Host::drop(Peer& peer, const QString& why) {
    peer.link->close(peer.seat < 0 ? Message(Refused{why}) : Message(Bye{why}));
    forget(peer, why);
}

void Host::forget(Peer& peer, const QString& why) {
    const int seat = peer.seat;
    const QString name = peer.name;
    disconnect(peer.link, nullptr, this, nullptr);
    peer.link->deleteLater();
    std::erase_if(peers_, [&](const auto& p) { return p.get() == &peer; });
    if (seat < 0) return emit turnedAway(why);
    if (!started_) {
        // The seat is open again, as it was offered.
        lobby_.setup.seats[static_cast<std::size_t>(seat)] =
            offered_.setup.seats[static_cast<std::size_t>(seat)];
        sendLobby();
    } else {
        // The others see the match stand still; they learn why from here.
        for (const auto& p : peers_)
            if (p->seat >= 0) p->link->send(Left{seat, why});
    }
    watchTurn();
    emit left(seat, name, why);
}

}  // namespace net
