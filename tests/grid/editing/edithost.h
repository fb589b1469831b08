#pragma once

#include <XeMFCEmu.h>

#include <QApplication>
#include <QKeyEvent>
#include <QPointer>
#include <QStringList>
#include <QTest>

#include <functional>

/// The parent of an editor: writes down how each edit ends, and which keys come to it.
class EditHost : public CWnd_X
{
public:
    LRESULT OnEnd(WPARAM id, LPARAM record)
    {
        const auto& end = *reinterpret_cast<const XeGridEditEnd*>(record);
        lastId = id;
        lastHeader = end.hdr;
        lastItem = end.item;
        ends += QStringLiteral("%1,%2 '%3' %4")
                    .arg(end.item.row)
                    .arg(end.item.col)
                    .arg(XeQString(end.item.strText))
                    .arg(end.item.lParam);
        if (onEnd)
            onEnd();
        return 1;
    }
    void OnKeyDown(UINT vk, UINT, UINT) { keys += QString::number(vk); }

    QStringList takeEnds() { return std::exchange(ends, {}); }

    QStringList ends;
    QStringList keys;
    WPARAM lastId = 0;
    NMHDR lastHeader{};
    _GV_ITEM_X lastItem;
    std::function<void()> onEnd;

    DECLARE_MESSAGE_MAP_X()
};

inline BEGIN_MESSAGE_MAP_X(EditHost, CWnd_X) ON_MESSAGE_X(XE_WM_ENDEDIT, OnEnd) ON_WM_KEYDOWN_X()
END_MESSAGE_MAP_X
()

    /// A window with a host and another field that can have the focus, shown and active.
    struct EditStage
{
    EditStage()
    {
        window.resize(400, 300);
        grid = new QWidget(&window);
        grid->setGeometry(10, 10, 300, 200);
        grid->setFocusPolicy(Qt::StrongFocus);
        other = new QLineEdit(&window);
        other->setGeometry(10, 230, 100, 25);
        host.SubclassWindow(grid);
    }

    bool comeUp()
    {
        window.show();
        const bool isActive = QTest::qWaitFor([this] {
            window.activateWindow();
            return window.isActiveWindow();
        });
        grid->setFocus();
        return isActive;
    }

    /// Has what was posted handled, and what is to be deleted deleted.
    static void settle()
    {
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    QWidget window;
    QWidget* grid;
    QLineEdit* other;
    EditHost host;
};
