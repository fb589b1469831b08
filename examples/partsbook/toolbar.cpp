#include "toolbar.h"

#include "control.h"
#include "resource.h"

#include <QMainWindow>

IMPLEMENT_DYNCREATE_X(CPartsToolBar, CToolBar_X)

void CPartsToolBar::Open(CWnd_X& frame)
{
    if (!Create(&frame))
        return;
    const auto command = [&frame](unsigned id) { return &control<QAction>(frame, id); };
    LoadToolBar({command(ID_PART_NEW), command(ID_PART_EDIT), command(ID_PART_DELETE)}, FALSE);
    AddSeparator(nullptr);
    LoadToolBar({command(ID_EDIT_FIND)}, FALSE);
    AddSeparator(nullptr);
    LoadToolBar({command(ID_FILE_SAVE)}, FALSE);
    AddSeparator(nullptr);
    LoadToolBar({command(ID_VIEW_MESSAGES)}, TRUE);
    LoadBitmap(L":/partsbook/toolbar.png");
    Imp<QToolBar>()->setMovable(false);
    frame.Imp<QMainWindow>()->addToolBar(Imp<QToolBar>());
}
