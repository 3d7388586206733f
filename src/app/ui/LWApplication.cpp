#include "app/ui/LWApplication.h"

#include "app/LWCommandLine.h"

#include "app/ui/LWAppDelegate.h"
#include "app/ui/LWMainWindow.h"
#include "app/ui/WindowScreenshot.h"
#include "editor/ui/LWWebViewController.h"
#include "editor/ui/TextOfferSchemeHandler.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QFileInfo>
#include <QIcon>

#include <cstdio>
#include <optional>

namespace LWApplication {

namespace {

struct Options
{
    QString screenshotPath;
    QStringList paths;
};

Options parse(const QApplication &app)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Larkwood, a text editor for programmers"));
    parser.addOption({QStringLiteral("screenshot"),
                      QStringLiteral("Save a picture of the window once the editor is ready, then quit."),
                      QStringLiteral("png")});
    parser.addPositionalArgument(QStringLiteral("paths"), QStringLiteral("Files and folders to open."),
                                 QStringLiteral("[paths...]"));
    parser.process(app);
    QStringList paths;
    for (const QString &path : parser.positionalArguments())
        paths << QFileInfo(path).absoluteFilePath();
    return {parser.value(QStringLiteral("screenshot")), paths};
}

// "--help" and "--version" are answered before the application object
// exists, so they need no display.
std::optional<int> answerWithoutWindow(int argc, char *argv[])
{
    QStringList arguments;
    for (int index = 0; index < argc; ++index)
        arguments << QString::fromLocal8Bit(argv[index]);
    const QString answer = LWCommandLine::answerFor(arguments);
    if (answer.isEmpty())
        return std::nullopt;
    std::fputs(answer.toLocal8Bit().constData(), stdout);
    return 0;
}

}

int run(int argc, char *argv[])
{
    if (const std::optional<int> answered = answerWithoutWindow(argc, argv))
        return *answered;
    QCoreApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
    TextOfferSchemeHandler::registerScheme();
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Larkwood"));
    QApplication::setOrganizationName(QStringLiteral("Larkwood"));
    // Outside a desktop session no icon theme is named; the common desktop
    // theme then gives the sidebar its icons per file type.
    if (QIcon::fallbackThemeName().isEmpty() || QIcon::fallbackThemeName() == QLatin1String("hicolor"))
        QIcon::setFallbackThemeName(QStringLiteral("Adwaita"));

    const Options options = parse(app);
    LWAppDelegate delegate(options.paths);
    LWMainWindow *window = delegate.window();
    window->resize(1200, 800);
    window->show();
    if (!options.screenshotPath.isEmpty())
        WindowScreenshot::takeWhenEditorReady(window, delegate.webView()->view(), options.screenshotPath);
    return app.exec();
}

}
