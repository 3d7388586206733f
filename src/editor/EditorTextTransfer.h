#pragma once

#include <QJsonValue>
#include <QString>

// How a document's text travels between the shell and the editor page on a
// switch. Both sides name each version of a text with a tag: the shell makes
// one for text it sets itself, the page one for each edited revision of a
// session ("<session id>:<revision>"). The page keeps one session per
// document, so entering a document whose text the page already holds under
// its tag moves no text at all, and reading an unchanged document back moves
// none either.
class EditorTextTransfer
{
public:
    // Texts up to this many characters go inside the script.
    static constexpr qsizetype LiteralLimit = 64 * 1024;

    // A tag for text the shell sets, unique for the life of the program.
    static QString newTag();

    // The "content" member of a state for lw.setState(): the text itself
    // when small (or when no server for offers is installed), else a
    // reference {"url": ...} from which the page fetches it once.
    static QJsonValue content(const QString &text);

    // "lw.getState()" naming the tag of the text the shell already holds, so
    // that an unchanged session answers without its content.
    static QString stateQuery(const QString &knownTag);
};
