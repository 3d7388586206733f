// Terminal flood: a command printing 50 MB streams into $Terminal the way the
// shell session delivers it (one "$Terminal.write('%@')" evaluation per
// output chunk). A timer in the page records the longest pause between its
// ticks; every line must arrive. Compared with cat of the same bytes to
// /dev/null.
#include "../tests/support/EditorPage.h"
#include "editor/JavaScriptEscape.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QJsonArray>
#include <QJsonDocument>
#include <QProcess>
#include <QTemporaryDir>
#include <cstdio>

namespace {

constexpr int FloodBytes = 50 * 1024 * 1024;

// Receives the page's terminal command and keeps its output callback.
class FloodCore : public QObject
{
    Q_OBJECT
public:
    QString command;
    QString action;

    Q_INVOKABLE QString terminalExec_env_action_completed_(const QString &commandJSON, const QString &,
                                                           const QString &outputCallback, const QString &)
    {
        command = QJsonDocument::fromJson(commandJSON.toUtf8()).array().at(1).toString();
        action = outputCallback;
        return {};
    }
};

int writeFloodFile(const QString &path)
{
    QFile file(path);
    file.open(QIODevice::WriteOnly);
    int lines = 0;
    QByteArray block;
    while (block.size() < FloodBytes) {
        block += QByteArray("flood line ") + QByteArray::number(lines++).rightJustified(9, '0')
                 + " <tag> [[;red;]brackets] \"quotes\" 'single' back\\slash $HOME ........................\n";
    }
    file.write(block);
    return lines;
}

double millisecondsOf(const QString &command)
{
    QElapsedTimer clock;
    clock.start();
    QProcess::execute(QStringLiteral("bash"), {QStringLiteral("-c"), command});
    return clock.nsecsElapsed() / 1e6;
}

// Runs the command as the shell session would and hands each chunk to the page.
void streamIntoPage(EditorPage &page, const QString &command, const QString &action)
{
    QProcess process;
    QObject::connect(&process, &QProcess::readyReadStandardOutput, [&] {
        const QString chunk = QString::fromUtf8(process.readAllStandardOutput());
        page.page->runJavaScript(QString(action).replace(QStringLiteral("%@"), escapedForJavascript(chunk)));
    });
    QEventLoop loop;
    QObject::connect(&process, &QProcess::finished, &loop, &QEventLoop::quit);
    process.start(QStringLiteral("bash"), {QStringLiteral("-c"), command});
    loop.exec();
    page.page->runJavaScript(QStringLiteral("window.setTerminalStdin(false);"));
}

}

int main(int argc, char **argv)
{
    QApplication app(argc, argv);
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("flood.txt"));
    const int lines = writeFloodFile(path);
    const double catTime = millisecondsOf(QStringLiteral("cat '%1' > /dev/null").arg(path));

    FloodCore core;
    EditorPage page(&core);
    if (!page.load()) {
        std::fprintf(stderr, "the editor page did not load\n");
        return 1;
    }
    page.eval(QStringLiteral("window.ticks = { last: performance.now(), longest: 0 };"
                             "setInterval(function () { var now = performance.now();"
                             "  ticks.longest = Math.max(ticks.longest, now - ticks.last); ticks.last = now; }, 20);"
                             "window.linesBefore = $Terminal.stats().lines; 0"));
    page.eval(QStringLiteral("$Terminal.exec(%1); 0").arg(QString::fromUtf8(
        QJsonDocument(QJsonArray{QStringLiteral("cat '%1'").arg(path)}).toJson(QJsonDocument::Compact)).mid(1).chopped(1)));
    if (!page.waitFor(QStringLiteral("true")) || core.action.isEmpty()) {
        std::fprintf(stderr, "the page sent no terminal command\n");
        return 1;
    }

    QElapsedTimer clock;
    clock.start();
    streamIntoPage(page, core.command, core.action);
    const double streamed = clock.nsecsElapsed() / 1e6;
    page.waitFor(QStringLiteral("$Terminal.stats().idle"), 600000);
    const double shown = clock.nsecsElapsed() / 1e6;

    const int arrived = page.eval(QStringLiteral("$Terminal.stats().lines - linesBefore")).toInt();
    const double longestPause = page.eval(QStringLiteral("ticks.longest")).toDouble();
    const bool lastLineShown = page.evalString(QStringLiteral("$('#terminal .terminal-output').text()"))
                                   .replace(QChar(0xa0), QLatin1Char(' ')).contains(QStringLiteral("flood line %1").arg(lines - 1, 9, 10, QLatin1Char('0')));
    std::printf("terminal flood of %d MB (%d lines): all delivered to the page in %.0f ms, all shown in %.0f ms;"
                " cat to /dev/null %.1f ms (ratio %.0f)\n", FloodBytes / (1024 * 1024), lines, streamed, shown,
                catTime, shown / catTime);
    std::printf("lines arrived %d of %d, last line shown: %s, longest pause of a 20 ms page timer %.0f ms\n",
                arrived, lines, lastLineShown ? "yes" : "NO", longestPause);
    const QString errors = page.evalString(QStringLiteral(
        "$('#terminal .terminal-output').text().split(/\\u2026/).length - 1 + ' skip notes; '"
        " + ($('#terminal .terminal-output').text().match(/Error[^\\n]{0,200}/) || ['no errors'])[0]"));
    std::printf("%s\n", qPrintable(errors + " " + page.page->errors.join(QLatin1Char('\n'))));
    return arrived == lines && lastLineShown ? 0 : 1;
}

#include "bench_terminal_flood.moc"
