#pragma once
// The machine that holds a match open to others: it seats those who join with the right code,
// the same game and the same data, stamps every command with the match time at which it takes
// effect and hands it to every machine, its own included, in one order. It keeps joiners to the
// rules of the conversation and sends away whoever breaks them, with a word why.
#include <QObject>
#include <QTcpServer>
#include <functional>
#include <map>
#include <memory>
#include <vector>

#include "net/Link.h"
#include "net/Pace.h"
#include "net/Protocol.h"
#include "ui/Timer.h"

namespace net {

class Host : public QObject {
    Q_OBJECT
public:
    // How often the host looks whether joiners should hear how far its match has run.
    static constexpr int kTickMs = Ticking::kEveryMs;
    // A joiner whose machine says nothing this long in his seat's turn is taken for gone.
    static constexpr int kSilentTurnMs = 30'000;
    // A connection that has not said hello by then is closed.
    static constexpr int kGreetingMs = 10'000;
    // Connections still to say hello; more are closed at once.
    static constexpr int kMostGreeting = 8;

    // `data`: this machine's data files, which every joiner must share.
    Host(QString gameVersion, std::vector<FileDigest> data, QObject* parent = nullptr);
    ~Host() override;

    // Listens on `port` (0: any free one) for joiners of the seats `lobby` marks remote, who must
    // give `code`. False, with error(), when the port cannot be had or no seat is remote.
    bool open(const Lobby& lobby, const QString& code, quint16 port = kDefaultPort);
    quint16 port() const { return server_.serverPort(); }
    const QString& error() const { return error_; }
    // The lobby as it stands: joiners' names and characters in their seats.
    const Lobby& lobby() const { return lobby_; }
    bool taken(int seat) const;
    // Starts the match once every remote seat is taken: joiners get the setup, nobody more is
    // let in, and ticks begin. False, with error(), when a seat still waits.
    bool start();
    // Says `reason` to every joiner and closes the match to them.
    void close(const QString& reason);

    // The host's match time in milliseconds, which commands are stamped with.
    void setMatchClock(std::function<int()> clock) { clock_ = std::move(clock); }
    // Whose turn it is (-1: nobody's); a joiner silent through his turn is sent away.
    void setTurn(int seat);
    // What the match is doing, which sets how far ahead and how often joiners are told.
    void setPace(Pace pace) { pace_ = pace; }
    // A command from this machine, for a seat no joiner plays: stamped, sent to every joiner
    // and given back through command(). False for a joiner's seat or before the start.
    bool send(game::Command command);
    // This machine plays `seat` from now on, its joiner having gone: its commands go out as the
    // host's own.
    void takeOver(int seat);
    // This machine's hash of the match state at `at` (the end of a turn), compared with the
    // joiners' own.
    void submitDigest(int at, std::uint64_t hash);
    // What is held of joiners' messages not yet read through.
    qint64 bufferedBytes() const;

signals:
    void joined(int seat, const QString& name);
    void seatChosen(int seat, const QString& name, const QString& character);
    // Every command of the match, stamped, in the one order every machine sees.
    void command(const game::Command& stamped);
    // A joiner left, was lost, or was sent away.
    void left(int seat, const QString& name, const QString& why);
    // A joiner's match went apart from this one by match time `at`.
    void digestMismatch(int seat, int at);
    // A connection was closed before it had a seat: refused, or it broke the rules.
    void turnedAway(const QString& why);

private:
    struct Peer {
        Link* link = nullptr;
        int seat = -1;
        QString name;
        int lastDigest = -1;
        std::map<int, std::uint64_t> digests;
        // The clock's tick count when it connected.
        std::int32_t since = 0;
    };
    void onConnection();
    void onMessage(Peer& peer, const Message& message);
    void greet(Peer& peer, const Hello& hello);
    void takeDigest(Peer& peer, const Digest& digest);
    void compare(Peer& peer, int at);
    // Closes the peer's connection with `why` and forgets it.
    void drop(Peer& peer, const QString& why);
    void forget(Peer& peer, const QString& why);
    Peer* peerOf(int seat);
    void sendLobby();
    void relay(game::Command command);
    void sendTick();
    void watchTurn();
    void dropSlowGreeters();
    int now() const { return clock_ ? clock_() : 0; }

    QString version_;
    std::vector<FileDigest> data_;
    QTcpServer server_;
    QString error_;
    QString code_;
    Lobby offered_, lobby_;
    bool started_ = false;
    std::vector<std::unique_ptr<Peer>> peers_;
    std::function<int()> clock_;
    int turn_ = -1;
    int lastStamp_ = 0;
    int lastTick_ = 0;
    Pace pace_ = Pace::Aiming;
    ui::Timer ticks_;
    ui::Timer silence_;
    ui::Timer greetings_;
    std::map<int, std::uint64_t> ownDigests_;
};

}  // namespace net
