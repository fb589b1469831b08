// The list of parts under a user's hands, to be edited in its cells.
#pragma once

#include "bookuser.h"

#include <QApplication>
#include <QComboBox>

/// A user of a book of four parts, all columns of which are shown.
class CellsUser : protected BookUser
{
protected:
    void comeUp();

    // Others than the samples: an ampersand, and a use that ends.
    static inline const QByteArray screw = "FA-1,Screw,Fastener,Hua & Feng,bought,10,5,0.06,yes,\n";
    static inline const QByteArray bearing = "BE-2,Bearing,Bearing,Wafang,made,3,6,12.50,yes,\n";
    static inline const QByteArray nut = "FA-3,Nut,Fastener,Hua & Feng,bought,20,15,0.06,ending,\n";
    static inline const QByteArray motor = "EL-4,Motor,Electrical,Kessler,customer,2,0,0.00,yes,heavy\n";

    // The columns, as a PartsView counts them.
    enum Column { Number, Name, Kind, Supplier, Source, Stock, Minimum, Price, InUse, Remark, Delivered };

    bool isModified() const;
    QWidget* editor() const { return QApplication::focusWidget(); }
    bool isEditing() const
    {
        return editor() && editor() != table().widget() && table().widget()->isAncestorOf(editor());
    }
    QString editedText() const;
    QString paneText(int pane) const;
    QPoint placeOf(int row, int column) const;
    void click(int row, int column);
    void doubleClick(int row, int column);
    void chord(unsigned long held, unsigned long key);
    void open(int row, int column);
    void clickItem(const QComboBox* box, int item);
};
