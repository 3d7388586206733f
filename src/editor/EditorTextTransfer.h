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

    // The "content" member of a state for lw.setState(): a reference
    // {"url": ...} from which the page fetches the text once, or the text
    // itself when it is small and new to the page (or when no server for
    // offers is installed). A page that holds the text under the state's tag
    // uses neither, so text it may hold always goes as a reference.
    static QJsonValue content(const QString &text, bool pageMayHoldIt);

    // "lw.getState()" naming the tag of the text the shell already holds, so
    // that an unchanged session answers without its content.
    static QString stateQuery(const QString &knownTag);
};
