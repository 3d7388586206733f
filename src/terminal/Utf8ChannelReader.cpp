#include "terminal/Utf8ChannelReader.h"

QString Utf8ChannelReader::readAvailable(QProcess &process, qsizetype *bytes)
{
    const QByteArray data = channel == QProcess::StandardOutput ? process.readAllStandardOutput()
                                                                : process.readAllStandardError();
    if (bytes)
        *bytes = data.size();
    return decoder.decode(data);
}
