#include "app/LWCommandLine.h"

#include "app/LWPaths.h"

namespace LWCommandLine {

QString answerFor(const QStringList &arguments)
{
    for (const QString &argument : arguments.mid(1)) {
        if (argument == QLatin1String("--"))
            break;
        if (argument == QLatin1String("--help") || argument == QLatin1String("-h"))
            return helpText();
        if (argument == QLatin1String("--version") || argument == QLatin1String("-v"))
            return versionText();
    }
    return {};
}

QString helpText()
{
    return QStringLiteral("Usage: larkwood [options] [paths...]\n"
                          "Larkwood, a text editor for programmers.\n"
                          "\n"
                          "Options:\n"
                          "  -h, --help          Show this help and exit.\n"
                          "  -v, --version       Show the version and exit.\n"
                          "  --line <n>          Show line n of the first file once it is open.\n"
                          "  --wait              Return only when the first file's document is closed\n"
                          "                      (or the editor quits); for use as $EDITOR.\n"
                          "  --screenshot <png>  Save a picture of the window once the editor is ready, then quit.\n"
                          "\n"
                          "Arguments:\n"
                          "  paths               Files and folders to open.\n"
                          "\n"
                          "When the editor is already running, the paths open in it and this\n"
                          "command returns at once (with --wait: once the document is closed).\n");
}

QString versionText()
{
    return QStringLiteral("Larkwood %1 (build %2)\n").arg(QStringLiteral(LARKWOOD_VERSION)).arg(LWPaths::buildNumber());
}

}
