#pragma once

#include <QString>
#include <QTest>

/// For tests whose rows are a text and what it is expected to be.
struct TextRows
{
    static void columns()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("expected");
    }

    static void compare()
    {
        QFETCH(QString, text);
        QTEST(text, "expected");
    }
};
