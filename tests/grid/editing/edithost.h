#pragma once

#include <XeMFCEmu.h>

#include <QApplication>
#include <QKeyEvent>
#include <QPointer>
#include <QStringList>
#include <QTest>

#include <functional>

/// The character of an editor that a call has opened, and no key.
inline constexpr unsigned byHost = 1;

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

    void OnMessageMap() override
    {
        CWnd_X::OnMessageMap();
        AddMsgMapEntry(XE_WM_ENDEDIT, AfxSig_l_w_l, XeHandler<LRESULT(WPARAM, LPARAM)>::of(&EditHost::OnEnd));
        AddMsgMapEntry(WM_KEYDOWN, AfxSig_v_u_uu, XeHandler<void(UINT, UINT, UINT)>::of(&EditHost::OnKeyDown));
    }
};

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
