// Terminal flood: a command printing 50 MB streams into $Terminal the way the
// shell session delivers it: chunks gather in an OutputCoalescer and leave as
// one "$Terminal.write('%@')" evaluation at a time, the next once the page
// has evaluated the last. A timer in the page records the longest pause
// between its ticks. Reports how much reached the page, how much was left
// out under the caps (with notes), the peak memory of this process, and cat
// of the same bytes to /dev/null for comparison. The last line must be shown.
#include "../tests/support/EditorPage.h"
#include "editor/JavaScriptEscape.h"
#include "terminal/LWTerminalSession.h"
#include "terminal/OutputCoalescer.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QJsonArray>
#include <QJsonDocument>
#include <QProcess>
#include <QRegularExpression>
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

struct Delivery
{
    qint64 produced = 0;   // characters the command printed
    qint64 delivered = 0;  // characters handed to the page, notes included
    int batches = 0;
};

// Runs the command as the shell session would and hands its output to the
// page through the coalescer; returns once the page has taken in the last batch.
Delivery streamIntoPage(EditorPage &page, const QString &command, const QString &action)
{
    Delivery counts;
    QEventLoop loop;
    const auto output = OutputCoalescer::create(
        LWTerminalSession::PendingOutputLimit, [&](const QString &batch, const std::function<void()> &delivered) {
            counts.delivered += batch.size();
            counts.batches++;
            page.page->runJavaScript(QString(action).replace(QStringLiteral("%@"), escapedForJavascript(batch)),
                                     [delivered](const QVariant &) { delivered(); });
        });
    QProcess process;
    QObject::connect(&process, &QProcess::readyReadStandardOutput, [&] {
        const QString chunk = QString::fromUtf8(process.readAllStandardOutput());
        counts.produced += chunk.size();
        output->append(chunk);
    });
    QObject::connect(&process, &QProcess::finished, [&] {
        output->finish([&] {
            page.page->runJavaScript(QStringLiteral("window.setTerminalStdin(false);"));
            loop.quit();
        });
    });
    process.start(QStringLiteral("bash"), {QStringLiteral("-c"), command});
    loop.exec();
    return counts;
}

double peakResidentMiB()
{
    QFile status(QStringLiteral("/proc/self/status"));
    status.open(QIODevice::ReadOnly);
    const QRegularExpression peak(QStringLiteral("^VmHWM:\\s+(\\d+) kB"), QRegularExpression::MultilineOption);
    return peak.match(QString::fromLatin1(status.readAll())).captured(1).toDouble() / 1024.0;
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
    const Delivery counts = streamIntoPage(page, core.command, core.action);
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
    std::printf("lines arrived %d of %d in %d page updates; %lld of %lld characters delivered;"
                " last line shown: %s, longest pause of a 20 ms page timer %.0f ms; peak RSS %.0f MiB\n",
                arrived, lines, counts.batches, static_cast<long long>(counts.delivered),
                static_cast<long long>(counts.produced), lastLineShown ? "yes" : "NO", longestPause, peakResidentMiB());
    const QString errors = page.evalString(QStringLiteral(
        "$('#terminal .terminal-output').text().split(/\\u2026/).length - 1 + ' skip notes; '"
        " + ($('#terminal .terminal-output').text().match(/Error[^\\n]{0,200}/) || ['no errors'])[0]"));
    std::printf("%s\n", qPrintable(errors + " " + page.page->errors.join(QLatin1Char('\n'))));
    std::printf("BENCH terminal_flood_shown %.0f ms\n", shown);
    std::printf("BENCH terminal_flood_longest_pause %.0f ms\n", longestPause);
    std::printf("BENCH terminal_flood_lines_arrived %.1f %%\n", 100.0 * arrived / lines);
    std::printf("BENCH terminal_flood_peak_rss %.0f MiB\n", peakResidentMiB());
    return lastLineShown ? 0 : 1;
}

#include "bench_terminal_flood.moc"
