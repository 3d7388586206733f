#pragma once

#include "app/ui/LWAppDelegate.h"
#include "app/ui/LWMainWindow.h"
#include "editor/ui/LWWebViewController.h"

#include <QAbstractButton>
#include <QMessageBox>
#include <QSignalSpy>
#include <QWebEngineView>
#include <QtTest>

// Drives the real window as a user does: the window started and active,
// keys typed into the editor, and the window's questions answered by
// pressing one of their buttons.
class WindowDriver
{
public:
    explicit WindowDriver(const QStringList &paths = {}) : delegate(std::make_unique<LWAppDelegate>(paths))
    {
        delegate->window()->resize(1000, 700);
        delegate->window()->show();
    }

    // True once the editor page is up with its bridge and the window is active.
    bool start()
    {
        QSignalSpy ready(delegate.get(), &LWAppDelegate::editorReady);
        if (!ready.wait(60000))
            return false;
        for (int waited = 0; waited < 20000 && page(QStringLiteral("typeof core")) != QLatin1String("object"); waited += 50)
            QTest::qWait(50);
        return activate();
    }

    bool activate()
    {
        delegate->window()->activateWindow();
        return QTest::qWaitForWindowActive(delegate->window());
    }

    QString page(const QString &script) { return delegate->evaluateInEditor(script); }

    QWidget *editorWidget() const
    {
        QWebEngineView *view = delegate->webView()->view();
        return view->focusProxy() ? view->focusProxy() : view;
    }

    // Types once the editor shows its caret, as a person waits to see it.
    // The window is made active first, as the desktop does when a question
    // in front of it has gone.
    bool typeKeys(const QString &text)
    {
        activate();
        for (int waited = 0; page(QStringLiteral("String(document.hasFocus() && lw.editor.isFocused())"))
                             != QLatin1String("true");
             waited += 50) {
            if (waited > 5000)
                return false;
            QTest::qWait(50);
        }
        QTest::keyClicks(editorWidget(), text);
        return true;
    }

    // Ctrl+S with the keyboard in the editor.
    void pressSave()
    {
        activate();
        QTest::keyClick(editorWidget(), Qt::Key_S, Qt::ControlModifier);
    }

    // The question on screen now (within a few seconds), or null.
    QMessageBox *question()
    {
        for (int waited = 0; waited < 5000; waited += 50) {
            for (QMessageBox *box : delegate->window()->findChildren<QMessageBox *>())
                if (box->isVisible())
                    return box;
            QTest::qWait(50);
        }
        return nullptr;
    }

    // Presses the button of the question on screen; false when there is none.
    bool answer(const QString &button)
    {
        QMessageBox *box = question();
        if (!box)
            return false;
        for (QAbstractButton *candidate : box->buttons()) {
            if (candidate->text() == button) {
                candidate->click();
                delete box;
                return true;
            }
        }
        return false;
    }

    std::unique_ptr<LWAppDelegate> delegate;
};
