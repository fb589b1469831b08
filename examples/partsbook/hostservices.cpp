#include "hostservices.h"

#include <QVariant>
#include <QWidget>
#include <xeprocess.h>

namespace {

bool isCommandActive() { return false; }

// The cursor types of the library; every other code is the arrow.
constexpr struct
{
    int code;
    Qt::CursorShape shape;
} cursors[]{
    {257, Qt::IBeamCursor},     {258, Qt::CrossCursor},   {259, Qt::WaitCursor},
    {260, Qt::SizeVerCursor},   {261, Qt::SizeHorCursor}, {262, Qt::SizeBDiagCursor},
    {263, Qt::SizeFDiagCursor}, {264, Qt::SizeAllCursor}, {268, Qt::PointingHandCursor},
};

Qt::CursorShape cursorShape(int code)
{
    for (const auto& cursor : cursors) {
        if (cursor.code == code)
            return cursor.shape;
    }
    return Qt::ArrowCursor;
}

// Gives back the code that the library is to remember.
int setHostCursor(QWidget*, int code)
{
    if (QWidget* frame = TavoGetMainFrame())
        frame->setCursor(cursorShape(code));
    return code;
}

template <class Function>
qlonglong address(Function* function)
{
    return static_cast<qlonglong>(reinterpret_cast<quintptr>(function));
}

} // namespace

void offerHostServices(QWidget* frame)
{
    frame->setObjectName("CTavoMainFrame");
    frame->setProperty("IsTavoCmdActive", address(isCommandActive));
    frame->setProperty("TavoSetCursor", address(setHostCursor));
}
