#include "app/ui/EditableReport.h"

#include <QPointer>
#include <QTimer>
#include <QWebEnginePage>
#include <QWebEngineView>

#include <cstdio>

namespace EditableReport {

namespace {

constexpr int pollMs = 10;

const QString editableQuery = QStringLiteral(
    "(typeof lw !== 'undefined' && lw.editor && lw.editor.session.getLength() > 1 && lw.editor.isFocused())"
    " ? 'yes' : ''");

}

void printWhenEditable(QWebEngineView *view)
{
    auto *poll = new QTimer(view);
    poll->setInterval(pollMs);
    QObject::connect(poll, &QTimer::timeout, view, [poll, view] {
        poll->stop();
        view->page()->runJavaScript(editableQuery, [poll = QPointer<QTimer>(poll)](const QVariant &answer) {
            if (!poll)
                return;
            if (answer.toString() != QLatin1String("yes")) {
                poll->start();
                return;
            }
            std::puts("editable");
            std::fflush(stdout);
            poll->deleteLater();
        });
    });
    poll->start();
}

}
