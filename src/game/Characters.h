#pragma once
// The characters the game knows by name, and what sets each apart: the sound it makes when it is
// chosen, its throw, its cry when hit, and for the two hidden ones the secret name that unlocks
// them. Any other character of the characters folder plays with the plain sounds.
#include <QString>
#include <array>

namespace game {

struct CharacterTraits {
    const char* name;
    // Sounds, paths in the data folder; none where the character has no sound of its own.
    const char* chosen;
    const char* throwing;
    const char* hit;
    // Typed into the name box in any case, it unlocks the character; none for the listed ones.
    const char* secret;
};

inline constexpr std::array<CharacterTraits, 8> kKnownCharacters{{
    {"Classic Grumbo", "sounds/classicG.wav", nullptr, nullptr, nullptr},
    {"Rapper Grumbo", "sounds/rapperG.wav", nullptr, nullptr, nullptr},
    {"Robo Grumbo", "sounds/roboG.wav", nullptr, nullptr, nullptr},
    {"Sorcerer Grumbo", "sounds/sorcererG.wav", "sounds/sThrow.wav", nullptr, nullptr},
    {"Space Grumbo", "sounds/spaceG.wav", nullptr, nullptr, nullptr},
    {"Suit Grumbo", "sounds/suitG.wav", nullptr, nullptr, nullptr},
    {"Dunik", "sounds/dunikG.wav", "sounds/dThrow.wav", "sounds/dHit.wav", "dunik"},
    {"Vostrel", "sounds/vostrelG.wav", "sounds/vGrr.wav", "sounds/vGrr.wav", "vostrel"},
}};

// The six characters the title screen dances with, in their order.
inline constexpr std::array<const char*, 6> kDancers{"Classic Grumbo", "Rapper Grumbo",
                                                     "Robo Grumbo",    "Sorcerer Grumbo",
                                                     "Space Grumbo",   "Suit Grumbo"};

// The traits of the character named exactly `name` (case counts), if the game knows it.
const CharacterTraits* traitsOf(const QString& name);
// The sound of choosing `name`; empty for a character without one.
QString chosenSound(const QString& name);
// Its throw: its own, or the plain one.
QString throwSound(const QString& name);
// Its cry when a projectile other than the nuke hits it: its own, or the plain one.
QString hitSound(const QString& name);
// Whether the folder scan leaves the character out: only its secret name brings it.
bool isHidden(const QString& name);
// The hidden character whose secret name `typed` is, in any case ("DuNiK": "Dunik"); empty if none.
QString unlockedBy(const QString& typed);

}  // namespace game
