// The list of parts under a user's hands, to be edited in its cells.
#pragma once

#include "mainframe.h"
#include "partsview.h"
#include "virtualinput.h"

#include <QApplication>
#include <QComboBox>
#include <QTemporaryDir>

/// A book of four parts in the main window, and a user with a real mouse and keyboard.
class CellsUser
{
protected:
    void comeUp();
    void goAway();

    // Others than the samples: an ampersand, and a use that ends.
    static inline const QByteArray screw = "FA-1,Screw,Fastener,Hua & Feng,bought,10,5,0.06,yes,\n";
    static inline const QByteArray bearing = "BE-2,Bearing,Bearing,Wafang,made,3,6,12.50,yes,\n";
    static inline const QByteArray nut = "FA-3,Nut,Fastener,Hua & Feng,bought,20,15,0.06,ending,\n";
    static inline const QByteArray motor = "EL-4,Motor,Electrical,Kessler,customer,2,0,0.00,yes,heavy\n";

    // The columns, as a PartsView counts them.
    enum Column { Number, Name, Kind, Supplier, Source, Stock, Minimum, Price, InUse, Remark, Delivered };

    static constexpr unsigned long keyTab = 0xFF09;
    static constexpr unsigned long keyReturn = 0xFF0D;
    static constexpr unsigned long keyEscape = 0xFF1B;
    static constexpr unsigned long keyBackspace = 0xFF08;
    static constexpr unsigned long keyDown = 0xFF54;
    static constexpr unsigned long keyF2 = 0xFFBF;
    static constexpr unsigned long keyMenu = 0xFF67;
    static constexpr unsigned long keyShift = 0xFFE1;

    QWidget* window() const { return m_frame->GetSafeHwnd(); }
    PartsView table() const { return PartsView(*window()); }
    QString cell(int row, int column) const { return table().text(row, column); }
    bool isModified() const;
    QWidget* editor() const { return QApplication::focusWidget(); }
    bool isEditing() const
    {
        return editor() && editor() != table().widget() && table().widget()->isAncestorOf(editor());
    }
    QString editedText() const;
    QString paneText(int pane) const;
    QPoint placeOf(int row, int column) const;
    QPoint onScreen(const QWidget* widget, QPoint place) const;
    void clickAt(QPoint place);
    void click(int row, int column);
    void doubleClick(int row, int column);
    void chord(unsigned long held, unsigned long key);
    void type(const QString& text);
    void type(unsigned long key) { m_input.typeKey(key); }
    void open(int row, int column);
    void clickItem(const QComboBox* box, int item);
    QByteArray saved();
    QString path() const { return m_folder->filePath("parts.csv"); }

    VirtualInput m_input;
    QScopedPointer<QTemporaryDir> m_folder;
    QScopedPointer<CMainFrame> m_frame;
};
