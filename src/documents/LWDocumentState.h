#pragma once

#include <QString>

#include <optional>

// An editor state held apart from any node: text, editor mode and the name
// of the language specification.
class LWDocumentState
{
public:
    static LWDocumentState stateWithContent(const QString &content);
    // The file's UTF-8 text (absent when unreadable) with the language specification
    // its name selects (without the ".coffee.md" rule).
    static LWDocumentState stateFromPath(const QString &path);

    std::optional<QString> content = QString(QLatin1String(""));
    std::optional<QString> mode = QStringLiteral("text");
    QString specName = QStringLiteral("Plain Text");
    // The editor's name for the content, when it gave one.
    std::optional<QString> tag;

    // {"content", "mode"}; absent members are left out.
    QString toJson() const;
    // Takes "content", "mode" and "tag" (each absent when missing).
    void updateFromJson(const QString &json);
};
