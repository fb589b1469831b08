#include <XeMFCEmu.h>

#include <QApplication>

#include <cstdio>

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QWidget widget;
    CWnd_X window;
    window.SubclassWindow(&widget);
    std::printf("%s %d\n", window.GetClassName(), CWnd_X::FromHandlePermanent(&widget) == &window);
}
