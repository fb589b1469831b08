// A combo box under test, and what shows of it.
#pragma once

#include <XeMFCEmu.h>

#include <QComboBox>
#include <QSignalSpy>

Q_DECLARE_METATYPE(CString_X)

inline CString_X textOf(const CWnd_X& window)
{
    CString_X text(L"untouched");
    window.GetWindowText(text);
    return text;
}

inline QString itemsOf(const QComboBox& box)
{
    QStringList items;
    for (int i = 0; i < box.count(); ++i)
        items += box.itemText(i);
    return items.join(QLatin1Char(' '));
}

// Counts what the box tells its clients.
struct Signals
{
    explicit Signals(QComboBox& box)
        : index(&box, QOverload<int>::of(&QComboBox::currentIndexChanged)),
          text(&box, &QComboBox::currentTextChanged),
          edited(&box, &QComboBox::editTextChanged)
    {}

    int count() const { return index.count() + text.count() + edited.count(); }

    QSignalSpy index;
    QSignalSpy text;
    QSignalSpy edited;
};

// A wrapped box of these items.
struct Stage
{
    explicit Stage(const QStringList& items = {}, bool editable = true)
    {
        box.setEditable(editable);
        box.addItems(items);
        combo.SubclassWindow(&box);
    }

    QComboBox box;
    CComboBox_X combo;
};

inline const QStringList fruit{QStringLiteral("apple"), QStringLiteral("Pear"), QStringLiteral("plum"),
                               QStringLiteral("pear")};
