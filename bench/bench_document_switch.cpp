// Document switches on the real editor page, driven through the document
// manager as the window drives them, each timed once from the shell's start
// until the editor shows the text, against the editor component's own
// setValue/getValue of the same text in the same page. Also the script
// escape's throughput.
#include "app/ui/LWAppDelegate.h"
#include "app/ui/LWMainWindow.h"
#include "documents/LWDocumentManager.h"
#include "editor/JavaScriptEscape.h"
#include "editor/ui/TextOfferSchemeHandler.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QTimer>
#include <cstdio>
#include <ctime>

namespace {

QString sourceText(qsizetype characters)
{
    const QString line = QStringLiteral("    result = compute(\"value\", 'quoted', path\\\\to\\\\file) + %1; // n\u00f6te\r\n");
    QString text;
    text.reserve(characters + 100);
    for (int i = 0; text.size() < characters; ++i)
        text += line.arg(i);
    text.truncate(characters);
    return text;
}

class SwitchBench
{
public:
    SwitchBench() : delegate(QStringList()) {}

    bool start()
    {
        delegate.window()->resize(1000, 700);
        delegate.window()->show();
        bool ready = false;
        QEventLoop loop;
        QObject::connect(&delegate, &LWAppDelegate::editorReady, &loop, [&] {
            ready = true;
            loop.quit();
        });
        QTimer::singleShot(60000, &loop, &QEventLoop::quit);
        loop.exec();
        // Lets the start-up work queued behind the ready signal (the outline
        // selecting the first document) finish before anything is timed.
        QTimer::singleShot(1000, &loop, &QEventLoop::quit);
        loop.exec();
        return ready;
    }

    // Milliseconds from asking for the switch until the page has drawn the document.
    double switchTo(const LWDocument::Ptr &document)
    {
        const qsizetype lines = document->getContent().count(QLatin1Char('\n')) + 1;
        QElapsedTimer clock;
        clock.start();
        delegate.documentManager()->switchToDoc(document);
        const QString shown = delegate.evaluateInEditor(
            QStringLiteral("lw.editor.resize(true); String(lw.editor.session.getLength())"));
        const double elapsed = clock.nsecsElapsed() / 1e6;
        if (shown.toLongLong() != lines)
            std::fprintf(stderr, "the editor shows %s lines, not %lld\n", qPrintable(shown),
                         static_cast<long long>(lines));
        return elapsed;
    }

    // The editor's own setValue and getValue of the document's text, in a
    // scratch session of the same page, in milliseconds.
    double editorAlone(const LWDocument::Ptr &scratch)
    {
        delegate.evaluateInEditor(QStringLiteral("window.benchText = lw.getValue(); ''"));
        switchTo(scratch);
        return delegate.evaluateInEditor(QStringLiteral(
            "(function () { var text = window.benchText; window.benchText = null;"
            "  var start = performance.now(); lw.editor.session.setValue(text); lw.editor.resize(true);"
            "  var back = lw.editor.getValue(); var elapsed = performance.now() - start;"
            "  return String(back.length === text.length ? elapsed : -1); })()")).toDouble();
    }

    LWAppDelegate delegate;
};

void measureSwitches(SwitchBench &bench)
{
    const LWDocument::Ptr home = LWDocument::fileWithLabel(QStringLiteral("home.txt"), QStringLiteral("home\n"));
    bench.switchTo(home);
    double backRatio = 0;
    for (int megabytes : {5, 50}) {
        const QString text = sourceText(qsizetype(megabytes) * 1000 * 1000);
        const LWDocument::Ptr document = LWDocument::fileWithLabel(QStringLiteral("big.txt"), text);
        const double first = bench.switchTo(document);
        bench.switchTo(home);
        const double back = bench.switchTo(document);
        const double alone = bench.editorAlone(LWDocument::fileWithLabel(QStringLiteral("scratch.txt"), QString()));
        std::printf("# %d MB: first switch %.1f ms, switch back %.2f ms, editor alone %.1f ms\n", megabytes, first,
                    back, alone);
        std::printf("BENCH switch_first_%dmb_vs_ace %.2f x\n", megabytes, first / alone);
        backRatio = back / alone;
        bench.switchTo(home);
    }
    std::printf("BENCH switch_back_vs_ace %.3f x\n", backRatio);
}

double threadSeconds()
{
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return now.tv_sec + now.tv_nsec / 1e9;
}

// Timed on this thread's processor clock, so that other work on a shared
// machine does not count against it.
void measureEscape()
{
    const QString text = sourceText(20 * 1024 * 1024);
    const double start = threadSeconds();
    const QString escaped = escapedForJavascript(text);
    const double seconds = threadSeconds() - start;
    std::printf("BENCH escape_mb_per_s %.0f MB/s\n", text.size() / 1e6 / seconds);
    if (escaped.size() <= text.size())
        std::fprintf(stderr, "the escape changed nothing\n");
}

}

int main(int argc, char **argv)
{
    TextOfferSchemeHandler::registerScheme();
    QApplication app(argc, argv);
    std::setvbuf(stdout, nullptr, _IOLBF, 0);
    SwitchBench bench;
    if (!bench.start()) {
        std::fprintf(stderr, "the editor page did not become ready\n");
        return 1;
    }
    measureSwitches(bench);
    measureEscape();
    return 0;
}
