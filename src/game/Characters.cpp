#include "game/Characters.h"

namespace game {

namespace {
QString orPlain(const char* own, const char* plain) {
    return QString::fromLatin1(own ? own : plain);
}
}  // namespace

const CharacterTraits* traitsOf(const QString& name) {
    for (const CharacterTraits& c : kKnownCharacters)
        if (name == QLatin1String(c.name)) return &c;
    return nullptr;
}

QString chosenSound(const QString& name) {
    const CharacterTraits* c = traitsOf(name);
    return c ? QString::fromLatin1(c->chosen) : QString();
}

QString throwSound(const QString& name) {
    const CharacterTraits* c = traitsOf(name);
    return orPlain(c ? c->throwing : nullptr, "sounds/throw.wav");
}

QString hitSound(const QString& name) {
    const CharacterTraits* c = traitsOf(name);
    return orPlain(c ? c->hit : nullptr, "sounds/ge.wav");
}

bool isHidden(const QString& name) {
    const CharacterTraits* c = traitsOf(name);
    return c && c->secret;
}

QString unlockedBy(const QString& typed) {
    for (const CharacterTraits& c : kKnownCharacters)
        if (c.secret && typed.toLower() == QLatin1String(c.secret)) return QLatin1String(c.name);
    return QString();
}

}  // namespace game
