// Document switch through the editor page: the shell's state round trip
// ("lw.setState(<json>);" then "lw.getState()") against the same content set
// and read by the editor directly inside the page, with the time split into
// transfer and parsing, the editor, and the way back.
#include "../tests/support/EditorPage.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QJsonDocument>
#include <QJsonObject>
#include <algorithm>
#include <cstdio>

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

    bool intact = true;
    const double roundTrip = bestOf([&] {
        page.eval(setState);
        const QString state = page.evalString(QStringLiteral("lw.getState()"));
        intact = intact && QJsonDocument::fromJson(state.toUtf8()).object().value("content").toString() == content;
    });
    const double inAce = page.eval(QStringLiteral(
        "(function () { var c = JSON.parse(lw.getState()).content, best = 1e12;"
        "  for (var i = 0; i < %1; i++) { var t = performance.now(); lw.editor.session.setValue(c);"
        "    if (lw.editor.getValue().length !== c.length) return -1; best = Math.min(best, performance.now() - t); }"
        "  return best; })()").arg(Runs)).toDouble();
    const double inPage = page.eval(QStringLiteral(
        "(function () { var state = JSON.parse(lw.getState()), best = 1e12;"
        "  for (var i = 0; i < %1; i++) { var t = performance.now(); lw.setState(state); lw.getState();"
        "    best = Math.min(best, performance.now() - t); }"
        "  return best; })()").arg(Runs)).toDouble();
    QString comment = json;
    comment.replace(QStringLiteral("*/"), QStringLiteral("* /"));
    const double transferIn = bestOf([&] { page.eval(QStringLiteral("/*%1*/ 0").arg(comment)); });
    const double parsedIn = bestOf([&] { page.eval(QStringLiteral("window.benchState = %1; 0").arg(json)); });
    const double transferOut = bestOf([&] { page.evalString(QStringLiteral("JSON.stringify(window.benchState)")); });
    page.eval(QStringLiteral("delete window.benchState; lw.setState({content: '', mode: 'text'}); 0"));

    std::printf("%3d MB  round trip %8.1f ms   editor alone in the page %7.1f ms   ratio %5.2f   content intact: %s\n",
                megabytes, roundTrip, inAce, roundTrip / inAce, intact ? "yes" : "NO");
    std::printf("        inside the page: setState + getState %7.1f ms (ratio %4.2f to the editor alone)\n",
                inPage, inPage / inAce);
    std::printf("        protocol: script transfer in %7.1f ms, parsing the literal %7.1f ms,"
                " result transfer back %7.1f ms\n", transferIn, parsedIn - transferIn, transferOut);
}

}

int main(int argc, char **argv)
{
    QApplication app(argc, argv);
    QObject core;
    EditorPage page(&core);
    if (!page.load()) {
        std::fprintf(stderr, "the editor page did not load\n");
        return 1;
    }
    for (int megabytes : {5, 50}) {
        measure(page, megabytes);
        std::fflush(stdout);
    }
    return 0;
}
