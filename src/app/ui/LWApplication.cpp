#include "app/ui/LWApplication.h"

#include "app/LWCommandLine.h"
#include "app/LWInstanceChannel.h"
#include "app/LWInstanceClient.h"
#include "app/LWInstanceServer.h"
#include "app/LWPaths.h"

#include "app/ui/EditableReport.h"
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
    LWOpenRequest request;
};

QStringList argumentsOf(int argc, char *argv[])
{
    QStringList arguments;
    for (int index = 0; index < argc; ++index)
        arguments << QString::fromLocal8Bit(argv[index]);
    return arguments;
}

// Read before the application object exists, since a later start hands its
// request to the running editor and ends without opening a display. Nothing
// when the arguments are not understood (the reason is printed).
std::optional<Options> parse(const QStringList &arguments)
{
    QCommandLineParser parser;
    const QCommandLineOption screenshot(QStringLiteral("screenshot"), QString(), QStringLiteral("png"));
    const QCommandLineOption line(QStringLiteral("line"), QString(), QStringLiteral("n"));
    const QCommandLineOption wait(QStringLiteral("wait"));
    parser.addOptions({screenshot, line, wait});
    if (!parser.parse(arguments)) {
        std::fprintf(stderr, "larkwood: %s\nTry larkwood --help.\n", qPrintable(parser.errorText()));
        return std::nullopt;
    }
    bool isNumber = true;
    Options options{parser.value(screenshot), {}};
    options.request.line = parser.isSet(line) ? parser.value(line).toInt(&isNumber) : 0;
    if (!isNumber || options.request.line < 0) {
        std::fprintf(stderr, "larkwood: --line takes a line number, not \"%s\"\n", qPrintable(parser.value(line)));
        return std::nullopt;
    }
    options.request.wait = parser.isSet(wait);
    for (const QString &path : parser.positionalArguments())
        options.request.paths << QFileInfo(path).absoluteFilePath();
    return options;
}

// "--help" and "--version" are answered before the application object
// exists, so they need no display.
std::optional<int> answerWithoutWindow(const QStringList &arguments)
{
    const QString answer = LWCommandLine::answerFor(arguments);
    if (answer.isEmpty())
        return std::nullopt;
    std::fputs(answer.toLocal8Bit().constData(), stdout);
    return 0;
}

// This start becomes the editor that later starts hand their files to.
void serveLaterStarts(LWInstanceServer &server, LWAppDelegate &delegate)
{
    if (!server.listen(LWInstanceChannel::socketName()))
        return;
    QObject::connect(&server, &LWInstanceServer::requested, &delegate, &LWAppDelegate::openRequest);
    QObject::connect(&delegate, &LWAppDelegate::openDocumentsChanged, &server, &LWInstanceServer::updateOpenDocuments);
}

}

int run(int argc, char *argv[])
{
    const QStringList arguments = argumentsOf(argc, argv);
    if (const std::optional<int> answered = answerWithoutWindow(arguments))
        return *answered;
    const std::optional<Options> options = parse(arguments);
    if (!options)
        return 2;
    if (options->screenshotPath.isEmpty() && LWInstanceClient::forward(LWInstanceChannel::socketName(), options->request))
        return 0;
    QCoreApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
    TextOfferSchemeHandler::registerScheme();
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Larkwood"));
    QApplication::setOrganizationName(QStringLiteral("Larkwood"));
    QApplication::setWindowIcon(QIcon(LWPaths::resourcePath(QStringLiteral("larkwood.svg"))));
    QApplication::setDesktopFileName(QStringLiteral("larkwood"));

    LWAppDelegate delegate({});
    LWInstanceServer server;
    if (options->screenshotPath.isEmpty())
        serveLaterStarts(server, delegate);
    delegate.openRequest(options->request);
    LWMainWindow *window = delegate.window();
    if (qEnvironmentVariableIsSet("LARKWOOD_REPORT_EDITABLE"))
        EditableReport::printWhenEditable(delegate.webView()->view());
    if (!options->screenshotPath.isEmpty())
        WindowScreenshot::takeWhenEditorReady(window, delegate.webView()->view(), options->screenshotPath);
    return app.exec();
}

}
