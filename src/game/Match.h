#pragma once
// A match as plain data and rules: the city as pixels, the characters, the projectile, the wind,
// turns, rounds and scores. Time moves only through advance(), which runs the match's phases
// (the start's test throw, building a round, aiming, flying, craters, explosions, points, the
// victory dance, the final board) and its steady ticks (flight, collision checks, the keyboard
// trap, the turn marker, the music) in the order they fall due. A match can be copied to try a
// throw on it.
#include <QString>
#include <array>
#include <cstdint>
#include <deque>
#include <optional>
#include <vector>

#include "core/Canvas.h"
#include "core/Random.h"
#include "game/Codes.h"
#include "game/Command.h"
#include "game/Damage.h"
#include "game/Durations.h"
#include "game/Figure.h"
#include "game/Flight.h"
#include "game/Indicator.h"
#include "game/Keys.h"
#include "game/Pilot.h"
#include "game/PointsPopup.h"
#include "game/ProjectileArt.h"
#include "game/Settings.h"
#include "game/Skyline.h"
#include "game/Steps.h"
#include "game/Wind.h"

namespace game {

// A character's three pictures: standing, and the two throwing poses (the first for throws to
// the right, the second for throws to the left; the victory dance alternates them).
struct CharacterArt {
    core::Canvas standing;
    std::array<core::Canvas, 2> poses;
};

struct PlayerSetup {
    QString name;
    QString character;
    CharacterArt art;
    // A seat the computer plays, and how well; none for a person.
    std::optional<Skill> computer;
};

// What a match leaves to the next match of the same run: nothing resets these.
struct Carry {
    std::array<std::array<bool, kKinds>, 4> specials{};
    CodeBuffer codes;
    Modes modes;
    int projectileFrame = 0;
    int indicatorCount = 0;
    int tune = 0;
    // How often the run's random numbers were reseeded so far.
    int reseeds = 0;
    bool operator==(const Carry& o) const {
        return specials == o.specials && codes.text() == o.codes.text() && modes == o.modes &&
               projectileFrame == o.projectileFrame && indicatorCount == o.indicatorCount &&
               tune == o.tune && reseeds == o.reseeds;
    }
};

struct MatchSetup {
    MatchSettings settings;
    // Players 1 to 4; a "1 vs 1" match uses the first two.
    std::array<PlayerSetup, 4> players;
    // The turn marker's picture.
    core::Canvas marker;
    // Every reseed of the match's random numbers is drawn from it and the count of reseeds so far
    // in the run (`carry.reseeds`).
    std::uint64_t seed = 0;
    Carry carry;
};

struct PlayerStats {
    int frags = 0;
    int misses = 0;
    // The misses when the round began (or, in "2 vs 2", at his last frag).
    int missMark = 0;
    int points = 0;
};

enum class Phase {
    Starting,
    BuildingRound,
    Aiming,
    Flying,
    Cratering,
    Dissolving,
    Exploding,
    Vaporizing,
    ShowingPoints,
    Dancing,
    FinalBoard,
};

// What the match asks of the world around it, in the order it happened.
struct MatchEvent {
    enum class Kind {
        Sound,       // plays `file`, a path in the data folder
        PlayTune,    // starts tune `tune`
        CloseTune,   // stops tune `tune`
        Paused,      // Escape: the pause box should open
        GameOver,    // five seconds after the final board: the game-over box should open
        FocusAngle,  // a turn began: the angle box takes the keyboard
    };
    Kind kind;
    QString file;
    int tune = 0;
    bool operator==(const MatchEvent&) const = default;
};

// The loading box over the match window, stage by stage.
struct Loading {
    enum class Stage { Loading, Synchronizing, Synchronized, Sky, Buildings, Player, Wind };
    bool shown = false;
    Stage stage = Stage::Loading;
    // Synchronized: how long the test took and the flight tick it gave, in milliseconds.
    int testMs = 0, tickMs = 0;
    // Player: whose character is being drawn, 0 to 3.
    int player = 0;
    double progress = 0;
    bool operator==(const Loading&) const = default;
};

struct Projectile {
    bool shown = false;
    QPoint pos;
    ProjectileKind kind = ProjectileKind::Normal;
    int frame = 0;
    const core::Canvas& picture() const { return projectileFrame(kind, frame); }
    QRect rect() const { return {pos, QSize(picture().width(), picture().height())}; }
};

// How a throw's flight ended.
struct Impact {
    enum class What { Missed, Building, Character };
    What what = What::Missed;
    // Where it ended: the point of the building it touched, else the projectile's top-left corner.
    QPoint at;
    // The character hit, or -1.
    int player = -1;
};

// The final board's figures: the side score, then a row a player.
struct BoardRow {
    int frags, points, accuracy, player;
    bool operator==(const BoardRow&) const = default;
};
struct Board {
    int left, right;
    std::vector<BoardRow> rows;
    bool operator==(const Board&) const = default;
};
// Whose turn the window's title names, with his points when his turn began.
struct Headline {
    int player, points;
};

// The angle and velocity boxes hold three characters.
constexpr int kBoxLength = 3;
// Only digits can be typed into the angle and velocity boxes; control characters (Backspace,
// Enter, Tab, the clipboard shortcuts) pass.
constexpr bool aimingAccepts(char16_t typed) {
    return typed <= 31 || (typed >= u'0' && typed <= u'9');
}

class Match {
public:
    explicit Match(const MatchSetup& setup);

    // Moves match time on by `ms`. While paused only the music counts.
    void advance(int ms);
    // Match time of the next thing that happens on its own, relative to now.
    int msUntilNextEvent() const;
    std::vector<MatchEvent> takeEvents();
    // Whether what the field shows may have changed since the last time the view asked: the
    // match's one notice of change, beside its events.
    bool takeChange() { return std::exchange(changed_, false); }
    // Who plays the computer's seats; none for a match of people only.
    void setPilot(Pilot* pilot) { pilot_ = pilot; }
    // A copy to try things on: no keys down, no pilot, no events or commands of its own so far.
    Match sandbox() const;

    // ---- What enters the match --------------------------------------------------------------
    // Moves the match on to the command's time and applies it; false, and nothing happens, for
    // a command from before the match's clock, of a seat the match does not have, or that
    // carries what no keyboard, mouse or computer could send.
    bool apply(const Command& command);
    // Every command applied so far, in order: with the setup, the whole match.
    const std::vector<Command>& commands() const { return commands_; }
    // Milliseconds since the match began, pauses included: the time commands are given at.
    int clock() const { return now_ + pausedFor_; }
    // A command left the match.
    bool left() const { return left_; }

    // ---- What there is to see ---------------------------------------------------------------
    const MatchSettings& settings() const { return settings_; }
    // How the match was set up, what it carried over included.
    const MatchSetup& setup() const { return setup_; }
    int players() const { return settings_.players(); }
    Phase phase() const;
    bool paused() const { return paused_; }
    bool over() const { return board_.has_value(); }
    // The game-over box is due: from five seconds after the final board.
    bool gameOverShown() const { return gameOverShown_; }
    int now() const { return now_; }

    // None until the first round stands.
    const std::optional<Headline>& headline() const { return headline_; }
    const Loading& loading() const { return loading_; }
    const core::Canvas& sky() const { return sky_; }
    const core::Canvas& scene() const { return scene_; }
    const Figure& figure(int player) const { return figures_[static_cast<std::size_t>(player)]; }
    bool figuresShown() const { return figuresShown_; }
    const Projectile& projectile() const { return projectile_; }
    // The wind box and the points box stand on the field except while a round is built and
    // after the match.
    bool boxesShown() const { return boxesShown_; }
    const core::Canvas& windBox() const { return windBox_; }
    const Wind& wind() const { return wind_; }
    // The player's points as the points box shows them: none until the end of his first throw.
    std::optional<int> panelPoints(int player) const {
        return panelPoints_[static_cast<std::size_t>(player)];
    }
    const Indicator& indicator() const { return indicator_; }
    const PointsPopup& popup() const { return popup_; }
    const std::optional<Board>& board() const { return board_; }

    const QString& name(int player) const { return names_[static_cast<std::size_t>(player)]; }
    const PlayerStats& stats(int player) const { return stats_[static_cast<std::size_t>(player)]; }
    int currentPlayer() const { return current_; }
    std::optional<Skill> computer(int player) const { return setupOf(player).computer; }
    // Match time at which the current aiming began: a turn began or a round stood.
    int aimingSince() const { return aimingSince_; }
    // How the last throw's flight ended.
    const Impact& lastImpact() const { return impact_; }
    int round() const { return round_; }
    int leftScore() const { return leftScore_; }
    int rightScore() const { return rightScore_; }
    const Modes& modes() const { return modes_; }
    bool holds(int player, ProjectileKind kind) const;
    ProjectileKind chosenKind() const { return kind_; }
    int tune() const { return tune_; }
    int flightTickMs() const { return flightTickMs_; }
    const Flight& flight() const { return flight_; }

    bool inputOpen() const { return inputOpen_; }
    bool canThrow() const;
    const QString& angleText() const { return angleText_; }
    const QString& velocityText() const { return velocityText_; }
    bool selectorShown(ProjectileKind kind) const { return selectorShown_[index(kind)]; }
    int selectorLeft(ProjectileKind kind) const { return selectorLeft_[index(kind)]; }
    int selectionFrameLeft() const { return frameLeft_; }

    Carry carry() const;

private:
    // ---- What the commands do --------------------------------------------------------------
    bool accepts(const Command& command) const;
    // Applies `command` now, at its time.
    void take(const Command& command);
    void setAngleText(const QString& text);
    void setVelocityText(const QString& text);
    // The selector of `kind`, when it shows.
    void chooseProjectile(ProjectileKind kind);
    void throwProjectile();
    void resume();

    // A step under way, and the match time of its next moment.
    struct Running {
        Step step;
        int nextAt;
    };
    // The match time of a step's next moment; none when it is done.
    using Next = std::optional<int>;
    enum class Due { Poll, Music, Indicator, Popup, FlightTick, Check, Step, Pilot };
    // A war projectile's building contact this low also earns points for a near miss.
    static constexpr int kLowWarHit = 450;

    static std::size_t index(ProjectileKind k) { return static_cast<std::size_t>(k); }
    Figure& figureOf(int player) { return figures_[static_cast<std::size_t>(player)]; }
    PlayerStats& statsOf(int player) { return stats_[static_cast<std::size_t>(player)]; }
    const PlayerSetup& setupOf(int player) const {
        return setup_.players[static_cast<std::size_t>(player)];
    }

    // Time (Match.cpp).
    std::optional<std::pair<int, Due>> nextDue() const;
    void run(Due what);
    void musicTick();
    void reseed();
    void play(const QString& file);
    // `steps` come next, before whatever was to come.
    void doNext(std::initializer_list<Step> steps);
    void runSteps();

    // Each kind of step starts, and has its next moments (MatchRound.cpp, MatchImpact.cpp); a
    // step that only waits is done at its first moment.
    Next start(steps::Calibrate& s);
    Next tick(steps::Calibrate& s);
    Next start(steps::ShowCalibration&);
    Next tick(steps::ShowCalibration&);
    Next start(steps::FirstRound&);
    Next start(steps::BuildRound& s);
    Next tick(steps::BuildRound& s);
    Next start(steps::Crater& s);
    Next tick(steps::Crater& s);
    Next start(steps::NearMiss&);
    Next start(steps::EndTurn&);
    Next start(steps::Dissolve& s);
    Next tick(steps::Dissolve& s);
    Next start(steps::NukeScan& s);
    Next start(steps::NukeMiss& s);
    Next start(steps::Blast& s);
    Next tick(steps::Blast& s);
    Next start(steps::Vaporize& s);
    Next tick(steps::Vaporize& s);
    Next start(steps::ScoreHit& s);
    Next start(steps::Dance& s);
    Next tick(steps::Dance& s);
    Next start(steps::AfterHit& s);
    Next start(steps::FinalBoard&);
    Next tick(steps::FinalBoard&);
    template <class Waiting>
    Next tick(Waiting&) {
        return std::nullopt;
    }

    // The start and the rounds (MatchRound.cpp).
    int roundStages() const;
    void showRoundStage(int stage);
    void drawSky();
    void placeAndBlendCharacters(const City& city);
    void redrawWindBox();
    void blend(int player);
    void alignProjectile();
    void showTurnTitle();
    void markTurn();

    // Throwing and flying (MatchFlight.cpp).
    void flightTick();
    void collisionCheck();
    void touchBuilding(int x);
    bool rightSide(int player) const;
    // True when the poll paused the match or moved the thrower.
    bool trapPoll();
    bool flyWithArrows();

    // Hits, craters, turns and the end (MatchImpact.cpp, MatchTurn.cpp).
    void hitCharacter(int player);
    // Points for a building hit near the enemy; true when they rise in a popup.
    bool scoreNearMiss();
    void scoreRound(int hit);
    void nukeScan(int from);
    bool teamFragged() const;
    void afterHit(int thrower);
    void endTurn();
    int nextPlayer(int from) const;
    void showSpecials();
    void endMatch();
    bool fragLimitReached() const;

    MatchSetup setup_;
    MatchSettings settings_;
    core::Random random_;
    int reseeds_ = 0;
    Keys keys_;
    std::vector<Command> commands_;
    bool left_ = false;
    Pilot* pilot_ = nullptr;
    std::vector<MatchEvent> events_;
    bool changed_ = true;

    // Match time stands still while paused; the music keeps its own count of real time.
    int now_ = 0;
    int pausedFor_ = 0;
    bool paused_ = false;
    int nextPoll_;
    int nextMusicTick_;  // in real time since the start
    int nextFlightTick_ = 0, nextCheck_ = 0;
    // Collision checks wait while a check's popup is up (a war projectile flies on meanwhile).
    int checksResumeAt_ = 0;
    std::optional<Running> underWay_;
    std::deque<Step> steps_;

    std::optional<Headline> headline_;
    Loading loading_;
    core::Canvas sky_, scene_;
    std::array<Figure, 4> figures_;
    std::array<QString, 4> names_;
    bool day_ = false;
    bool figuresShown_ = true;
    bool boxesShown_ = true;
    Projectile projectile_;
    // The flight frame counter; it goes on from match to match.
    int projectileFrame_ = 0;
    Flight flight_;
    bool flying_ = false;
    Impact impact_;
    int flightTickMs_;
    Wind wind_;
    core::Canvas windBox_;
    Indicator indicator_;
    PointsPopup popup_;
    std::optional<Board> board_;
    bool gameOverShown_ = false;

    std::array<PlayerStats, 4> stats_{};
    std::array<std::optional<int>, 4> panelPoints_{};
    std::array<std::array<bool, kKinds>, 4> specials_{};
    CodeBuffer codes_;
    Modes modes_;
    int current_ = 0;
    int aimingSince_ = 0;
    ProjectileKind kind_ = ProjectileKind::Normal;
    std::vector<int> fragged_;
    bool roundOver_ = false;
    bool nukedPlayer_ = false;
    Span nukedBuilding_{0, 0};
    int nukeRoof_ = 0;
    int round_ = 1, leftScore_ = 0, rightScore_ = 0;
    int tune_ = 0, tuneSeconds_ = 0;

    bool inputOpen_ = true;
    QString angleText_, velocityText_;
    std::array<bool, kKinds> selectorShown_{true, false, false, false};
    std::array<int, kKinds> selectorLeft_{9, 28, 47, 67};
    int frameLeft_ = 8;
};

}  // namespace game
