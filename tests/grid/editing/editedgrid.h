#pragma once

#include "gridwindow.h"

#include <XeMFCEmu.h>

#include <QLineEdit>
#include <QPointer>

/// A grid of 6 x 4 cells with a fixed row and column, in an active window; the cells have their places as texts.
template <class Grid = CGridCtrl_X>
struct EditedGrid
{
    EditedGrid() : grid(std::make_unique<Grid>())
    {
        window.resize(500, 300);
        widget = new QWidget(&window);
        widget->setGeometry(0, 0, 450, 250);
        other = new QLineEdit(&window);
        other->setGeometry(0, 260, 100, 25);
        owner.SubclassWindow(&window);
        grid->SubclassWindow(widget);
        grid->SetRowCount(6);
        grid->SetColumnCount(4);
        grid->SetFixedRowCount(1);
        grid->SetFixedColumnCount(1);
        for (int row = 0; row < 6; ++row) {
            for (int col = 0; col < 4; ++col)
                grid->SetItemText(row, col, CString_X(QStringLiteral("%1.%2").arg(row).arg(col)));
        }
        grid->SetModified(FALSE);
    }

    bool comeUp()
    {
        window.show();
        const bool isActive = QTest::qWaitFor([this] {
            window.activateWindow();
            return window.isActiveWindow();
        });
        widget->setFocus();
        grid->SetFocusCell(2, 2);
        QCoreApplication::processEvents();
        owner.take();
        return isActive && QTest::qWaitForWindowExposed(&window);
    }

    void edit(int row = 2, int col = 2, UINT ch = 1) { grid->OnEditCell(row, col, CPoint(-1, -1), ch); }
    QLineEdit* field() const { return widget ? widget->findChild<QLineEdit*>() : nullptr; }
    /// The field that is open now; one that has ended is still there, and hidden.
    QLineEdit* openField() const
    {
        const auto fields = widget ? widget->findChildren<QLineEdit*>() : QList<QLineEdit*>();
        for (QLineEdit* field : fields) {
            if (!field->isHidden())
                return field;
        }
        return nullptr;
    }
    QString openText() const { return openField() ? openField()->text() : QStringLiteral("none"); }
    QString text(int row, int col) const { return XeQString(grid->GetItemText(row, col)); }

    static void settle()
    {
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    QWidget window;
    QPointer<QWidget> widget;
    QLineEdit* other;
    GridParent owner;
    std::unique_ptr<Grid> grid;
};
