// A window that relays to the tips of its fields.
#pragma once

#include <xetooltipctrl.h>

#include <QLineEdit>
#include <QVector>

/// Counts what its message map gets, and relays what it sees.
class CTipOwner : public CWnd_X
{
public:
    int PreTranslateMessage(tagMSG* message) override
    {
        seen.append(*message);
        if (tips)
            tips->RelayEvent(message);
        return stops && message->message == WM_LBUTTONDOWN;
    }
    void OnMessageMap() override
    {
        using ThisClass = CTipOwner;
        CWnd_X::OnMessageMap();
        ON_WM_LBUTTONDOWN_X()
        ON_WM_PAINT_X()
    }
    void OnLButtonDown(UINT, CPoint) { ++presses; }
    void OnPaint() { ++paints; }

    /// How often a message of an object was seen.
    int count(const QObject* from, UINT message) const
    {
        int found = 0;
        for (const tagMSG& one : seen)
            found += one.hwnd == from && one.message == message;
        return found;
    }

    CToolTipCtrl_X* tips = nullptr;
    QVector<tagMSG> seen;
    bool stops = false;
    int presses = 0;
    int paints = 0;
};

/// A window with two fields, one of them wrapped, and the tips of both.
struct TipFixture
{
    TipFixture()
    {
        window.resize(300, 200);
        name->setGeometry(10, 10, 100, 30);
        stock->setGeometry(10, 60, 100, 30);
        owner.SubclassWindow(&window);
        owner.tips = &tips;
        tips.Create(&owner);
    }

    QWidget window;
    QLineEdit* const name = new QLineEdit(&window);
    QLineEdit* const stock = new QLineEdit(&window);
    CTipOwner owner;
    CToolTipCtrl_X tips;
};

inline tagMSG moveOver(QObject* widget)
{
    tagMSG message{};
    message.hwnd = widget;
    message.message = WM_MOUSEMOVE;
    message.time = 1'700'000'000;
    return message;
}
