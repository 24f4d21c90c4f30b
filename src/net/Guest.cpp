#include "net/Guest.h"

#include <QHostAddress>
#include <QTcpSocket>

namespace net {

namespace {
constexpr std::size_t kKeptDigests = 64;

void keepRecent(std::map<int, std::uint64_t>& digests) {
    while (digests.size() > kKeptDigests) digests.erase(digests.begin());
}
}  // namespace

std::optional<Address> parseAddress(const QString& text) {
    const QString t = text.trimmed();
    Address a;
    QString port;
    if (t.startsWith(QLatin1Char('['))) {
        const qsizetype close = t.indexOf(QLatin1Char(']'));
        if (close < 0) return std::nullopt;
        a.host = t.mid(1, close - 1);
        const QString rest = t.mid(close + 1);
        if (!rest.isEmpty() && !rest.startsWith(QLatin1Char(':'))) return std::nullopt;
        port = rest.mid(1);
        if (rest.isEmpty()) port.clear();
        else if (port.isEmpty()) return std::nullopt;
    } else if (t.count(QLatin1Char(':')) == 1) {
        a.host = t.section(QLatin1Char(':'), 0, 0);
        port = t.section(QLatin1Char(':'), 1);
        if (port.isEmpty()) return std::nullopt;
    } else {
        a.host = t;  // a name, an IPv4 address or a bare IPv6 one
    }
    if (a.host.isEmpty() || a.host.contains(QLatin1Char(' '))) return std::nullopt;
    if (!port.isEmpty()) {
        bool ok = false;
        const uint n = port.toUInt(&ok);
        if (!ok || n < 1 || n > 65535 || !port.front().isDigit()) return std::nullopt;
        a.port = static_cast<quint16>(n);
    }
    return a;
}

Guest::Guest(QString gameVersion, std::vector<FileDigest> data, QObject* parent)
    : QObject(parent),
      version_(std::move(gameVersion)),
      data_(std::move(data)),
      answer_(
          kAnswerMs,
          [this] {
              end(QStringLiteral("no answer from %1 within %2 s").arg(where_).arg(kAnswerMs / 1000),
                  Bye{QStringLiteral("no answer")});
          }),
      keepAlive_(kKeepAliveMs, [this] {
          if (link_) link_->send(Tick{clock_ ? std::max(0, clock_()) : 0});
      }) {}

Guest::~Guest() {
    if (state_ != State::Idle && state_ != State::Ended) leave(QStringLiteral("the game closed"));
}

void Guest::join(const QString& address, const QString& code, const QString& name) {
    leave(QStringLiteral("joining another match"));
    seat_ = -1;
    lastAt_ = 0;
    own_.clear();
    host_.clear();
    const std::optional<Address> a = parseAddress(address);
    if (!a) {
        state_ = State::Ended;
        emit refused(QStringLiteral("\"%1\" is no address of a computer").arg(address.left(60)));
        return;
    }
    where_ = a->host + QLatin1Char(':') + QString::number(a->port);
    auto* socket = new QTcpSocket;
    link_ = new Link(socket, kLargestMessage, this);
    state_ = State::Greeting;
    Hello hello{kProtocolVersion, version_, code, name, data_};
    connect(socket, &QTcpSocket::connected, link_, [link = link_, hello] { link->send(hello); });
    connect(link_, &Link::received, this, &Guest::onMessage);
    connect(link_, &Link::broken, this, [this](const QString& why) {
        end(QStringLiteral("the host broke the rules: ") + why, Bye{why});
    });
    connect(link_, &Link::lost, this, [this](const QString& why) {
        end(state_ == State::Greeting ? QStringLiteral("cannot reach %1: %2").arg(where_, why)
                                      : QStringLiteral("the host is gone: ") + why,
            std::nullopt);
    });
    answer_.setEnabled(true);
    socket->connectToHost(a->host, a->port);
}

bool Guest::chooseSeat(const QString& name, const QString& character) {
    if (state_ != State::Seated) return false;
    link_->send(SeatChoice{name, character});
    return true;
}

bool Guest::send(const game::Command& command) {
    if (state_ != State::Playing || command.seat != seat_) return false;
    link_->send(CommandMessage{command});
    return true;
}

void Guest::submitDigest(int at, std::uint64_t hash) {
    if (state_ != State::Playing) return;
    own_[at] = hash;
    keepRecent(own_);
    link_->send(Digest{at, hash});
    compare(at);
}

void Guest::compare(int at) {
    const auto own = own_.find(at);
    const auto host = host_.find(at);
    if (own == own_.end() || host == host_.end()) return;
    const bool differ = own->second != host->second;
    host_.erase(host);
    if (differ) emit digestMismatch(at);
}

void Guest::leave(const QString& reason) {
    if (link_) close(Bye{reason});
}

void Guest::close(std::optional<Message> last) {
    if (link_) {
        link_->close(last);
        disconnect(link_, nullptr, this, nullptr);
        link_->deleteLater();
        link_ = nullptr;
    }
    answer_.setEnabled(false);
    keepAlive_.setEnabled(false);
    state_ = State::Ended;
}

void Guest::end(const QString& why, std::optional<Message> last) {
    const bool greeting = state_ == State::Greeting;
    close(last);
    if (greeting) emit refused(why);
    else emit hostLeft(why);
}

void Guest::onMessage(const Message& message) {
    const auto outOfOrder = [&](const char* when) {
        const QString why =
            QStringLiteral("\"%1\" %2").arg(QLatin1String(kindOf(message)), QLatin1String(when));
        end(QStringLiteral("the host broke the rules: ") + why, Bye{why});
    };
    if (const auto* w = std::get_if<Welcome>(&message)) {
        if (state_ == State::Playing) return outOfOrder("after the start");
        if (state_ == State::Seated && w->seat != seat_) return outOfOrder("moving this seat");
        state_ = State::Seated;
        answer_.setEnabled(false);
        seat_ = w->seat;
        lobby_ = w->lobby;
        emit welcomed(seat_, lobby_);
    } else if (const auto* r = std::get_if<Refused>(&message)) {
        if (state_ != State::Greeting) return outOfOrder("after the welcome");
        end(r->reason, std::nullopt);
    } else if (const auto* s = std::get_if<Start>(&message)) {
        if (state_ != State::Seated) return outOfOrder("before the welcome or a second time");
        if (!s->lobby.remote[static_cast<std::size_t>(seat_)])
            return outOfOrder("without this machine's seat");
        state_ = State::Playing;
        lobby_ = s->lobby;
        keepAlive_.setEnabled(true);
        emit started(lobby_);
    } else if (const auto* c = std::get_if<CommandMessage>(&message)) {
        if (state_ != State::Playing) return outOfOrder("before the start");
        if (c->command.at < lastAt_) return outOfOrder("earlier than the last");
        if (c->command.seat >= lobby_.setup.settings.players())
            return outOfOrder("for a player the match does not have");
        lastAt_ = c->command.at;
        emit command(c->command);
    } else if (const auto* t = std::get_if<Tick>(&message)) {
        if (state_ != State::Playing) return outOfOrder("before the start");
        if (t->at < lastAt_) return outOfOrder("earlier than the last");
        lastAt_ = t->at;
        emit tick(t->at);
    } else if (const auto* d = std::get_if<Digest>(&message)) {
        if (state_ != State::Playing) return outOfOrder("before the start");
        host_[d->at] = d->hash;
        keepRecent(host_);
        compare(d->at);
    } else if (const auto* l = std::get_if<Left>(&message)) {
        if (state_ != State::Playing) return outOfOrder("before the start");
        if (l->seat == seat_ || !lobby_.remote[static_cast<std::size_t>(l->seat)])
            return outOfOrder("for a seat no other joining computer plays");
        emit otherLeft(l->seat, l->reason);
    } else if (const auto* b = std::get_if<Bye>(&message)) {
        end(b->reason.isEmpty() ? QStringLiteral("the host left") : b->reason, std::nullopt);
    } else {
        outOfOrder("from the host, which only a joiner sends");
    }
}

}  // namespace net
