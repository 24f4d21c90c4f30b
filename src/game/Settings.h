#pragma once
// The options of a match, as the setup screen offers them and as a match runs with them.
namespace game {

enum class GameType { OneVsOne, TwoVsTwo };
enum class TimeOfDay { Random, Day, Night };
// How well a computer seat plays.
enum class Skill { Easy, Normal, Hard };
// The skill a computer seat gets unless a player chooses another.
constexpr Skill kUsualSkill = Skill::Normal;

struct MatchSettings {
    // Pixels per unit of flight time squared.
    double gravity = 9.8;
    GameType gameType = GameType::OneVsOne;
    TimeOfDay timeOfDay = TimeOfDay::Random;
    // Rounds a side must win.
    int fragLimit = 3;
    // The strongest wind a round can have, in hundredths.
    int windExtremity = 20;
    // How many building heights there are: a building is (k + 5) x 18 pixels, k below this.
    int buildingHeight = 8;
    // A new wind after every throw.
    bool windGusts = true;
    bool music = true;

    int players() const { return gameType == GameType::TwoVsTwo ? 4 : 2; }
    bool operator==(const MatchSettings&) const = default;
};

// The ranges the setup screen's controls allow.
constexpr int kMinGravityTenths = 5, kMaxGravityTenths = 200;
constexpr int kMinFragLimit = 1, kMaxFragLimit = 50;
constexpr int kMinWindExtremity = 0, kMaxWindExtremity = 35;
constexpr int kMinBuildingHeight = 4, kMaxBuildingHeight = 12;

}  // namespace game
