#pragma once

#include <QString>

// Text that keeps at most a fixed number of characters (holding up to twice
// as many between takes): when more arrives, the oldest text goes first, up
// to the end of the line it cuts into where that line ends soon. What was dropped is counted and announced by a note
// at the front of the text taken next.
class TailBuffer
{
public:
    explicit TailBuffer(qsizetype capacity) : capacity(qMax<qsizetype>(capacity, 1)) {}

    void append(const QString &text);
    bool isEmpty() const { return text.isEmpty() && dropped == 0; }

    // The kept text, after a note when something was dropped; empties the buffer.
    QString take();

private:
    void dropOldest();

    qsizetype capacity;
    QString text;
    qsizetype dropped = 0;
};
