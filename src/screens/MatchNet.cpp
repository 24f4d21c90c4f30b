#include "screens/MatchNet.h"

#include <QCryptographicHash>
#include <QDataStream>

#include "net/Guest.h"
#include "net/Host.h"

namespace screens {

std::uint64_t matchDigest(const game::Match& m) {
    QCryptographicHash hash(QCryptographicHash::Sha256);
    const QImage& scene = m.scene().image();
    hash.addData(QByteArrayView(reinterpret_cast<const char*>(scene.constBits()),
                                static_cast<qsizetype>(scene.sizeInBytes())));
    QByteArray numbers;
    QDataStream out(&numbers, QIODevice::WriteOnly);
    // Nothing that may move while a turn is aimed (the boxes, a flying thrower) counts.
    out << m.round() << m.currentPlayer() << m.leftScore() << m.rightScore() << m.wind().strength;
    for (int i = 0; i < m.players(); ++i) {
        const game::PlayerStats& s = m.stats(i);
        out << s.points << s.frags << s.misses;
    }
    hash.addData(numbers);
    const QByteArray sum = hash.result();
    std::uint64_t value = 0;
    for (int i = 0; i < 8; ++i) value = value << 8 | static_cast<std::uint8_t>(sum[i]);
    return value;
}

MatchNet::MatchNet(game::Match& match, computer::Autopilot& pilot, net::Host& host,
                   const std::array<bool, 4>& local)
    : match_(match), pilot_(pilot), host_(&host), local_(local) {
    host.setMatchClock([this] { return match_.clock(); });
    connect(&host, &net::Host::command, this, [this](const game::Command& c) { arrive(c); });
    connect(&host, &net::Host::digestMismatch, this, [this](int seat, int) {
        if (onBroken)
            onBroken(QStringLiteral("The match on %1's computer went another way than here.")
                         .arg(match_.name(seat)));
    });
}

MatchNet::MatchNet(game::Match& match, computer::Autopilot& pilot, net::Guest& guest, int seat)
    : match_(match), pilot_(pilot), guest_(&guest) {
    local_[static_cast<std::size_t>(seat)] = true;
    guest.setMatchClock([this] { return match_.clock(); });
    connect(&guest, &net::Guest::command, this, [this](const game::Command& c) { arrive(c); });
    connect(&guest, &net::Guest::tick, this, [this](int at) {
        allowed_ = std::max(allowed_, at);
        if (onArrived) onArrived();
    });
    connect(&guest, &net::Guest::digestMismatch, this, [this](int) {
        if (onBroken)
            onBroken(
                QStringLiteral("The match here went another way than on the host's computer."));
    });
}

MatchNet::~MatchNet() {
    if (host_) host_->setMatchClock({});
    if (guest_) guest_->setMatchClock({});
}

void MatchNet::arrive(const game::Command& stamped) {
    due_.push_back(stamped);
    // The host sends nothing earlier than a command it sent: a joiner may run up to it.
    allowed_ = std::max(allowed_, stamped.at);
    if (onArrived) onArrived();
}

void MatchNet::runTo(int target) {
    if (guest_) {
        // Never past what the host allowed, nor further behind it than the host's lead, so that
        // a joiner slowed down for a moment catches up.
        target = std::clamp(target, allowed_ - net::Ticking::kLeadMs, allowed_);
    }
    while (!due_.empty() && due_.front().at <= target) {
        // A command the match refuses means the machines no longer play the same match.
        if (!match_.apply(due_.front())) {
            due_.clear();
            if (onBroken) onBroken(QStringLiteral("A move arrived that this match cannot take."));
            return;
        }
        due_.pop_front();
    }
    if (target > match_.clock()) match_.advance(target - match_.clock());
    afterStep();
}

void MatchNet::send(game::Command command) {
    const int current = match_.currentPlayer();
    using Kind = game::Command::Kind;
    const bool aiming = command.kind == Kind::Angle || command.kind == Kind::Velocity ||
                        command.kind == Kind::Choose || command.kind == Kind::Throw;
    if (local(current)) command.seat = current;
    else if (aiming) return;
    else
        command.seat =
            static_cast<int>(std::find(local_.begin(), local_.end(), true) - local_.begin());
    sendOut(command);
}

void MatchNet::sendOut(const game::Command& command) {
    if (host_) host_->send(command);
    else guest_->send(command);
}

void MatchNet::takeOver(int seat) {
    local_[static_cast<std::size_t>(seat)] = true;
    if (host_) host_->takeOver(seat);
}

void MatchNet::afterStep() {
    // This machine's computer seats play through the host like its people.
    for (int guard = 0; guard < 16; ++guard) {
        const std::optional<int> at = pilot_.nextActionAt(match_);
        if (!at || *at > match_.now()) break;
        for (const game::Command& c : pilot_.act(match_)) sendOut(c);
    }
    const bool aiming = match_.phase() == game::Phase::Aiming && match_.inputOpen();
    if (host_) {
        host_->setTurn(aiming ? match_.currentPlayer() : -1);
        std::array<bool, 4> remote{};
        for (int s = 0; s < 4; ++s) remote[std::size_t(s)] = !local(s);
        host_->setPace(net::paceOf(match_, remote));
    }
    if (aiming && match_.aimingSince() != digestAt_) {
        digestAt_ = match_.aimingSince();
        const std::uint64_t digest = matchDigest(match_);
        if (host_) host_->submitDigest(digestAt_, digest);
        else guest_->submitDigest(digestAt_, digest);
    }
}

}  // namespace screens
