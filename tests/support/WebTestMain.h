#pragma once

#include "editor/ui/TextOfferSchemeHandler.h"

#include <QApplication>
#include <QtTest>

// QTEST_MAIN for tests of the real pages: the shell's URL schemes are
// declared before the application object exists, as the program does.
#define LW_WEB_TEST_MAIN(TestObject)                   \
    int main(int argc, char *argv[])                   \
    {                                                  \
        TextOfferSchemeHandler::registerScheme();      \
        QApplication app(argc, argv);                  \
        app.setAttribute(Qt::AA_Use96Dpi, true);       \
        TestObject test;                               \
        QTEST_SET_MAIN_SOURCE_PATH                     \
        return QTest::qExec(&test, argc, argv);        \
    }
