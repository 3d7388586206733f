// Document switch through the editor page: the shell's state round trip
// ("lw.setState(<json>);" then "lw.getState()") against the same content set
// and read by the editor directly inside the page, with each call split into
// the page's own work and the rest (moving and parsing the script and its
// result between the processes).
#include "../tests/support/EditorPage.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QJsonDocument>
#include <QJsonObject>
#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace {

constexpr int Runs = 3;

QString sourceText(int bytes)
{
    const QString line = QStringLiteral("    result = compute(\"value\", 'quoted', path\\\\to\\\\file) + %1; // note\n");
    QString text;
    text.reserve(bytes + 100);
    for (int i = 0; text.size() < bytes; ++i)
        text += line.arg(i);
    return text;
}

// The best time of a statement run inside the page with `state` holding the
// current document's state object.
double inPageBest(EditorPage &page, const char *statement)
{
    return page.eval(QStringLiteral(
        "(function () { var state = JSON.parse(lw.getState()), best = 1e12;"
        "  for (var i = 0; i < %1; i++) { lw.setState(state); var t = performance.now(); %2"
        "    best = Math.min(best, performance.now() - t); }"
        "  return best; })()").arg(Runs).arg(QLatin1String(statement))).toDouble();
}

template <typename Step>
double bestOf(Step step)
{
    double best = 1e12;
    for (int run = 0; run < Runs; ++run) {
        QElapsedTimer clock;
        clock.start();
        step();
        best = std::min(best, clock.nsecsElapsed() / 1e6);
    }
    return best;
}

void measure(EditorPage &page, int megabytes)
{
    const QString content = sourceText(megabytes * 1024 * 1024);
    const QString json = QString::fromUtf8(QJsonDocument(QJsonObject{{"content", content}, {"mode", "javascript"}})
                                               .toJson(QJsonDocument::Compact));
    const QString setState = QStringLiteral("lw.setState(%1);").arg(json);

    QString state;
    const double roundTrip = bestOf([&] {
        page.eval(setState);
        state = page.evalString(QStringLiteral("lw.getState()"));
    });
    const bool intact = QJsonDocument::fromJson(state.toUtf8()).object().value("content").toString() == content;
    const double inAce = page.eval(QStringLiteral(
        "(function () { var c = JSON.parse(lw.getState()).content, best = 1e12;"
        "  for (var i = 0; i < %1; i++) { var t = performance.now(); lw.editor.session.setValue(c);"
        "    if (lw.editor.getValue().length !== c.length) return -1; best = Math.min(best, performance.now() - t); }"
        "  return best; })()").arg(Runs)).toDouble();
    const double pageSet = inPageBest(page, "lw.setState(state);");
    const double pageGet = inPageBest(page, "lw.getState();");
    const double protocolSet = bestOf([&] { page.eval(setState); });
    const double protocolGet = bestOf([&] { page.evalString(QStringLiteral("lw.getState()")); });
    page.eval(QStringLiteral("lw.setState({content: '', mode: 'text'}); 0"));

    std::printf("%3d MB  round trip %8.1f ms   editor alone in the page %7.1f ms   ratio %5.2f   content intact: %s\n",
                megabytes, roundTrip, inAce, roundTrip / inAce, intact ? "yes" : "NO");
    std::printf("        setState %8.1f ms, of which the page's own work %6.1f ms (the rest: script transfer and parsing)\n",
                protocolSet, pageSet);
    std::printf("        getState %8.1f ms, of which the page's own work %6.1f ms (the rest: result transfer)\n",
                protocolGet, pageGet);
}

}

int main(int argc, char **argv)
{
    QApplication app(argc, argv);
    // A fresh page per size, so that one size's garbage does not weigh on the next.
    for (int megabytes : {5, 50}) {
        QObject core;
        EditorPage page(&core);
        QObject::connect(page.page, &QWebEnginePage::renderProcessTerminated, [](auto status, int code) {
            std::fprintf(stderr, "the page's process ended (status %d, code %d)\n", int(status), code);
            std::exit(1);
        });
        if (!page.load()) {
            std::fprintf(stderr, "the editor page did not load\n");
            return 1;
        }
        measure(page, megabytes);
        std::fflush(stdout);
    }
    return 0;
}
