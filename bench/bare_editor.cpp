// The least a program can do to show the editor: the editor page of the
// resource tree in a web view, given the text of one file and the keyboard.
// Start-up measurements compare the editor against it.
#include "app/LWPaths.h"
#include "app/ui/EditableReport.h"

#include <QApplication>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QTimer>
#include <QUrl>
#include <QWebEngineView>

namespace {

// Sets the text once the page's editor exists, then gives it the keyboard.
void showTextWhenReady(QWebEngineView *view, const QString &textLiteral)
{
    const QString script = QStringLiteral("(typeof lw !== 'undefined' && lw.editor) ? "
                                          "(lw.editor.setValue(%1, -1), lw.editor.focus(), 'yes') : ''")
                               .arg(textLiteral);
    view->page()->runJavaScript(script, [view, textLiteral](const QVariant &answer) {
        if (answer.toString() != QLatin1String("yes"))
            QTimer::singleShot(10, view, [view, textLiteral] { showTextWhenReady(view, textLiteral); });
    });
}

}

int main(int argc, char *argv[])
{
    QCoreApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
    QApplication app(argc, argv);
    if (argc < 2)
        return 2;
    QFile file(QString::fromLocal8Bit(argv[1]));
    if (!file.open(QIODevice::ReadOnly))
        return 2;
    const QByteArray array = QJsonDocument(QJsonArray{QString::fromUtf8(file.readAll())}).toJson(QJsonDocument::Compact);
    const QString textLiteral = QString::fromUtf8(array.mid(1, array.size() - 2));

    QWebEngineView view;
    view.resize(1200, 800);
    view.show();
    view.setFocus();
    QObject::connect(&view, &QWebEngineView::loadFinished, &view, [&view, textLiteral] {
        showTextWhenReady(&view, textLiteral);
    });
    view.load(QUrl::fromLocalFile(LWPaths::resourcePath(QStringLiteral("Data/Html/index.html"))));
    EditableReport::printWhenEditable(&view);
    return app.exec();
}
