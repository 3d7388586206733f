#pragma once

#include <QByteArray>
#include <QStringList>

#include <optional>

// What one start of the program asks of the running editor: the absolute
// paths to open, the line to show in the first of them (0: none), and
// whether the asking process waits until that document is closed. Travels
// between the two processes as one line of JSON.
struct LWOpenRequest
{
    QStringList paths;
    int line = 0;
    bool wait = false;

    QByteArray toJsonLine() const;
    // Nothing when the line is not such a request.
    static std::optional<LWOpenRequest> fromJsonLine(const QByteArray &line);
};
