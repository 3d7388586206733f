#include "app/ui/Dialogs.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QSlider>
#include <QtTest>

// The shared dialogs answered the way a user would: the buttons are pressed
// and the fields filled in.
class TestDialogs : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void inputShowsItsDefaultOnlyAsAHint();
    void cancellingCallsNothing();
    void confirmationAnswersOneForOk();
    void returnAnswersNoToAYesNoQuestion();
    void sliderReportsMovesAndTheChosenValue();

private:
    // The dialog on screen (closed ones may wait for deletion).
    template <typename Dialog>
    Dialog *openDialog() const
    {
        QCoreApplication::processEvents();
        for (Dialog *dialog : window->findChildren<Dialog *>()) {
            if (dialog->isVisible())
                return dialog;
        }
        return nullptr;
    }
    static void press(QDialog *dialog, QDialogButtonBox::StandardButton which);

    std::unique_ptr<QWidget> window;
};

void TestDialogs::init()
{
    window = std::make_unique<QWidget>();
    window->show();
}

void TestDialogs::press(QDialog *dialog, QDialogButtonBox::StandardButton which)
{
    dialog->findChild<QDialogButtonBox *>()->button(which)->click();
}

void TestDialogs::inputShowsItsDefaultOnlyAsAHint()
{
    QStringList answers;
    const auto record = [&](const QString &text) { answers.append(text); };
    Dialogs::input(window.get(), QStringLiteral("Line number"), QStringLiteral("1"), record);
    auto *dialog = openDialog<QDialog>();
    QVERIFY(dialog);
    QCOMPARE(dialog->findChild<QLineEdit *>()->placeholderText(), QStringLiteral("1"));
    press(dialog, QDialogButtonBox::Ok);

    Dialogs::input(window.get(), QStringLiteral("Line number"), QStringLiteral("1"), record);
    dialog = openDialog<QDialog>();
    QTest::keyClicks(dialog->findChild<QLineEdit *>(), QStringLiteral("12"));
    press(dialog, QDialogButtonBox::Ok);
    QCOMPARE(answers, QStringList({QString(), QStringLiteral("12")}));
}

void TestDialogs::cancellingCallsNothing()
{
    bool called = false;
    Dialogs::input(window.get(), QStringLiteral("Name"), QString(), [&](const QString &) { called = true; });
    press(openDialog<QDialog>(), QDialogButtonBox::Cancel);
    Dialogs::slider(window.get(), QStringLiteral("Size"), 0, 1, 0.5, {}, [&](double) { called = true; });
    press(openDialog<QDialog>(), QDialogButtonBox::Cancel);
    QCoreApplication::processEvents();
    QVERIFY(!called);
}

void TestDialogs::confirmationAnswersOneForOk()
{
    QList<int> answers;
    for (const QString &button : {QStringLiteral("OK"), QStringLiteral("Cancel")}) {
        Dialogs::okCancel(window.get(), QStringLiteral("Sure?"), QStringLiteral("It cannot be undone."),
                          [&](int answer) { answers.append(answer); });
        auto *box = openDialog<QMessageBox>();
        QVERIFY(box);
        QCOMPARE(box->informativeText(), QStringLiteral("It cannot be undone."));
        const QList<QAbstractButton *> buttons = box->buttons();
        const auto pressed = std::find_if(buttons.begin(), buttons.end(),
                                          [&](QAbstractButton *candidate) { return candidate->text() == button; });
        QVERIFY(pressed != buttons.end());
        (*pressed)->click();
        QCoreApplication::processEvents();
    }
    QCOMPARE(answers, QList<int>({1, 0}));
}

void TestDialogs::returnAnswersNoToAYesNoQuestion()
{
    QList<int> answers;
    for (const bool pressYes : {false, true}) {
        Dialogs::yesNo(window.get(), QStringLiteral("Replace it?"), QString(), [&](int answer) { answers.append(answer); });
        auto *box = openDialog<QMessageBox>();
        QVERIFY(box);
        QCOMPARE(box->defaultButton()->text(), QStringLiteral("No"));
        if (pressYes)
            box->buttons().at(box->buttons().at(0)->text() == QLatin1String("Yes") ? 0 : 1)->click();
        else
            QTest::keyClick(box, Qt::Key_Return);
        QCoreApplication::processEvents();
    }
    QCOMPARE(answers, QList<int>({1, 0}));
}

void TestDialogs::sliderReportsMovesAndTheChosenValue()
{
    QList<double> moves;
    double chosen = -1;
    Dialogs::slider(window.get(), QStringLiteral("Opacity"), 10, 20, 15,
                    [&](double value) { moves.append(value); }, [&](double value) { chosen = value; });
    auto *dialog = openDialog<QDialog>();
    auto *slider = dialog->findChild<QSlider *>();
    QCOMPARE(slider->value(), slider->maximum() / 2);
    slider->setValue(slider->maximum());
    press(dialog, QDialogButtonBox::Ok);
    QCOMPARE(moves, QList<double>{20.0});
    QCOMPARE(chosen, 20.0);
}

QTEST_MAIN(TestDialogs)
#include "tst_Dialogs.moc"
