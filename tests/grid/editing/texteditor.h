#pragma once

#include "editing/edithost.h"

#include <QLineEdit>
#include <QPointer>

/// An editor of a text over an EditStage.
struct Editor
{
    explicit Editor(EditStage& stage, unsigned ch = byHost, const wchar_t* text = L"drill", unsigned style = 0)
    {
        CRect rect(20, 30, 80, 50);
        editor = new CInPlaceEdit_X(stage.grid, rect, style, 8, 3, 4, text, ch);
        field = qobject_cast<QLineEdit*>(editor->GetSafeHwnd());
    }

    QPointer<CInPlaceEdit_X> editor;
    QPointer<QLineEdit> field;
};
