#pragma once

#include "editing/edithost.h"

#include <QAbstractItemView>
#include <QComboBox>

inline CStringArray_X itemsOf(const QStringList& texts)
{
    CStringArray_X items;
    for (const QString& text : texts)
        items.Add(CString_X(text));
    return items;
}

inline const QStringList parts{QStringLiteral("bolt"), QStringLiteral("nut"), QStringLiteral("washer")};

/// An editor of the class List over an EditStage.
template <class List>
struct ListStage : EditStage
{
    void open(unsigned style, unsigned ch = byHost, const wchar_t* text = L"nut", const QStringList& texts = parts)
    {
        CStringArray_X items = itemsOf(texts);
        list = new List(&host, rect, style, 8, 3, 4, items, text, ch);
        box = qobject_cast<QComboBox*>(list->GetSafeHwnd());
    }
    bool isOpen() const { return box && box->view()->isVisible(); }
    /// To be asked inside QVERIFY: shows the window, and an editor whose list is open.
    bool comeUpWithList(unsigned style)
    {
        if (!comeUp())
            return false;
        open(style);
        list->ShowDropDown();
        return isOpen() && QTest::qWaitForWindowExposed(box->view()->window());
    }

    CRect rect{20, 30, 120, 50};
    QPointer<List> list;
    QPointer<QComboBox> box;
};

using PlainStage = ListStage<CInPlaceList_X>;
using EaseStage = ListStage<CEaseInPlaceList_X>;
