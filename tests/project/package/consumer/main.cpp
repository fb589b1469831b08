#include <XeMFCEmu.h>

#include <QApplication>
#include <QPrinter>

#include <cstdio>

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QWidget widget;
    CWnd_X window;
    window.SubclassWindow(&widget);
    const QPrinter printer; // of a Qt module that the package brings along
    if (printer.paintingActive() || CPrintDialog_X(FALSE).GetPrinterDC())
        return 1;
    std::printf("%s %d\n", window.GetClassName(), CWnd_X::FromHandlePermanent(&widget) == &window);
}
