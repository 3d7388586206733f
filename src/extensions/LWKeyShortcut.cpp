#include "extensions/LWKeyShortcut.h"

#include <QStringList>

namespace LWKeyShortcut {

namespace {

int modifierFor(QChar character)
{
    switch (character.unicode()) {
    case '$': return Shift;
    case '@': return Command;
    case '^': return Control;
    case '~': return Option;
    default: return 0;
    }
}

}

QVariantMap decodeKeyShortcut(const QString &shortcut)
{
    const QStringList parts = shortcut.split(QLatin1Char('+'));
    QString key = shortcut.toLower();
    int modifiers = 0;
    if (parts.size() >= 2) {
        key = parts.last().toLower();
        for (QChar character : parts.first())
            modifiers |= modifierFor(character);
    }
    return {{QStringLiteral("keyEquivalent"), key}, {QStringLiteral("keyModifier"), modifiers}};
}

}
