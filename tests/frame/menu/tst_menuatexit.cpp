// Temporary wrappers that are still there when the application object has gone.

#include "testclass.h"

#include <XeMFCEmu.h>

class tst_MenuAtExit : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theTemporaryMapMayGoLast();
};

void tst_MenuAtExit::theTemporaryMapMayGoLast()
{
    static CMenu_X* left = nullptr;
    {
        int argc = 1;
        char name[] = "tst_menuatexit";
        char* argv[]{name, nullptr};
        const QApplication application(argc, argv);
        QMenu menu;
        CMenu_X::FromHandle(&menu);
        CMenu_X::FromHandle(new QMenu(&menu))->AppendMenu(MF_STRING, 1, L"A");
        left = CMenu_X::FromHandle(new QMenu(&menu));
        left->CreatePopupMenu(); // an owned one, which dies with the application
    }
    CMenu_X::DeleteTempMap();
    {
        int argc = 1;
        char name[] = "tst_menuatexit";
        char* argv[]{name, nullptr};
        const QApplication application(argc, argv);
        QMenu menu;
        CMenu_X::FromHandle(&menu); // goes with the process
    }
}

XE_APPLESS_TEST(tst_MenuAtExit)
#include "tst_menuatexit.moc"
