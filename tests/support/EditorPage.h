#pragma once

#include "app/LWPaths.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QFile>
#include <QStringList>
#include <QTimer>
#include <QUrl>
#include <QVariant>
#include <QWebChannel>
#include <QWebEnginePage>
#include <QWebEngineScript>
#include <QWebEngineScriptCollection>
#include <QWebEngineView>
#include <memory>

// A web page that keeps the console messages of its scripts, errors apart.
class ConsoleRecordingPage : public QWebEnginePage
{
public:
    using QWebEnginePage::QWebEnginePage;

    QStringList errors;
    QStringList messages;

protected:
    void javaScriptConsoleMessage(JavaScriptConsoleMessageLevel level, const QString &message,
                                  int line, const QString &source) override
    {
        const QString text = QStringLiteral("%1:%2: %3").arg(source).arg(line).arg(message);
        messages.append(text);
        if (level == ErrorMessageLevel)
            errors.append(text);
    }
};

// One of the editor pages loaded as the host loads it (the file's HTML with
// its own file URL as base), with `core` published through a web channel and
// scripts evaluated synchronously.
class EditorPage
{
public:
    explicit EditorPage(QObject *core, const QString &relativePath = QStringLiteral("Data/Html/index.html"))
        : page(new ConsoleRecordingPage(&view)), path(LWPaths::resourcePath(relativePath))
    {
        QFile channelScript(QStringLiteral(":/qtwebchannel/qwebchannel.js"));
        channelScript.open(QIODevice::ReadOnly);
        QWebEngineScript script;
        script.setName(QStringLiteral("qwebchannel"));
        script.setSourceCode(QString::fromUtf8(channelScript.readAll()));
        script.setInjectionPoint(QWebEngineScript::DocumentCreation);
        script.setWorldId(QWebEngineScript::MainWorld);
        page->scripts().insert(script);
        channel.registerObject(QStringLiteral("core"), core);
        page->setWebChannel(&channel);
        view.setPage(page);
        view.resize(1000, 700);
        view.show();
    }

    // Loads the page; true once `lw` exists and the channel is connected.
    bool load(int timeoutMs = 30000)
    {
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly))
            return false;
        page->setHtml(QString::fromUtf8(file.readAll()), QUrl::fromLocalFile(path));
        return waitFor(QStringLiteral("typeof lw === 'object' && Bridge.isConnected()"), timeoutMs);
    }

    QVariant eval(const QString &script, int timeoutMs = 120000)
    {
        struct Answer { QVariant value; bool done = false; };
        auto answer = std::make_shared<Answer>();
        QEventLoop loop;
        QTimer::singleShot(timeoutMs, &loop, &QEventLoop::quit);
        page->runJavaScript(script, [answer, &loop](const QVariant &value) {
            answer->value = value;
            answer->done = true;
            loop.quit();
        });
        if (!answer->done)
            loop.exec();
        return answer->value;
    }

    QString evalString(const QString &script) { return eval(script).toString(); }

    // Waits until the script expression is true.
    bool waitFor(const QString &condition, int timeoutMs = 10000)
    {
        QElapsedTimer clock;
        clock.start();
        while (clock.elapsed() < timeoutMs) {
            if (eval(QStringLiteral("!!(%1)").arg(condition), timeoutMs).toBool())
                return true;
            QEventLoop pause;
            QTimer::singleShot(20, &pause, &QEventLoop::quit);
            pause.exec();
        }
        return false;
    }

    QWebEngineView view;
    ConsoleRecordingPage *page;
    QWebChannel channel;
    QString path;
};
