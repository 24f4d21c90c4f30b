#pragma once
// A machine that joins a match held open by a host: it asks for a seat with the code the host
// gave, sends its own seat's commands to the host, and plays only what comes back stamped, so
// that its match runs as the host's does.
#include <QObject>
#include <functional>
#include <map>
#include <optional>

#include "net/Link.h"
#include "net/Protocol.h"
#include "ui/Timer.h"

namespace net {

struct Address {
    QString host;
    quint16 port = kDefaultPort;
};
// "HOST", "HOST:PORT" or "[IPv6]:PORT"; none for what is no address.
std::optional<Address> parseAddress(const QString& text);

class Guest : public QObject {
    Q_OBJECT
public:
    // The host must have answered by then.
    static constexpr int kAnswerMs = 10'000;
    // How often a joiner in a match shows it is still there.
    static constexpr int kKeepAliveMs = 10'000;

    // `data`: this machine's data files, which must be the host's.
    Guest(QString gameVersion, std::vector<FileDigest> data, QObject* parent = nullptr);
    ~Guest() override;

    // Connects to `address` and asks for a seat with `code` as `name`; welcomed() or refused()
    // follows.
    void join(const QString& address, const QString& code, const QString& name);
    // Who plays the seat given; before the start only.
    bool chooseSeat(const QString& name, const QString& character);
    // A command of this machine's seat, for the host to stamp; it comes back through command().
    bool send(const game::Command& command);
    // This machine's hash of the match state at `at` (the end of a turn).
    void submitDigest(int at, std::uint64_t hash);
    // This machine's match time, told to the host with each sign of life.
    void setMatchClock(std::function<int()> clock) { clock_ = std::move(clock); }
    void leave(const QString& reason);

    // The seat given (0 to 3), or -1.
    int seat() const { return seat_; }
    bool playing() const { return state_ == State::Playing; }
    const Lobby& lobby() const { return lobby_; }

signals:
    // The seat given and the lobby; again whenever the lobby changes.
    void welcomed(int seat, const net::Lobby& lobby);
    void started(const net::Lobby& lobby);
    // The host would not seat this machine, or could not be reached.
    void refused(const QString& reason);
    // Every command of the match, stamped by the host, in the host's order.
    void command(const game::Command& stamped);
    // The match may run up to `at`: every command before it has arrived.
    void tick(int at);
    // The host ended the match, went away, or broke the rules.
    void hostLeft(const QString& reason);
    // The player at another joining computer, who played `seat`, is gone.
    void otherLeft(int seat, const QString& reason);
    void digestMismatch(int at);

private:
    enum class State { Idle, Greeting, Seated, Playing, Ended };
    void onMessage(const Message& message);
    // Closes the connection, `last` its last word, and stops the timers.
    void close(std::optional<Message> last);
    // Ends the connection with `why`: refused() while greeting, hostLeft() after.
    void end(const QString& why, std::optional<Message> last);
    void compare(int at);

    QString version_;
    std::vector<FileDigest> data_;
    State state_ = State::Idle;
    Link* link_ = nullptr;
    QString where_;
    int seat_ = -1;
    Lobby lobby_;
    int lastAt_ = 0;
    std::function<int()> clock_;
    ui::Timer answer_;
    ui::Timer keepAlive_;
    std::map<int, std::uint64_t> own_, host_;
};

}  // namespace net
