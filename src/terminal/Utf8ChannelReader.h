#pragma once

#include <QProcess>
#include <QStringDecoder>

// Reads one output channel of a process as UTF-8 text. The decoder keeps its
// state between reads, so a multi-byte character split across two reads comes
// out whole in the second one instead of as two replacement characters.
class Utf8ChannelReader
{
public:
    explicit Utf8ChannelReader(QProcess::ProcessChannel channel) : channel(channel) {}

    // Everything the channel has buffered, decoded; `bytes` receives the raw size.
    QString readAvailable(QProcess &process, qsizetype *bytes = nullptr);

private:
    QProcess::ProcessChannel channel;
    QStringDecoder decoder{QStringDecoder::Utf8};
};
