#pragma once

#include <xeafxframe.h>

#include <QSplitter>
#include <QTest>

/// A view that is made by the splitter, or refuses to be.
class View : public CWnd_X
{
public:
    using CWnd_X::Create;
    int Create(QWidget* parent) override
    {
        madeIn = parent;
        return refuses ? 0 : CWnd_X::Create(parent);
    }

    QWidget* madeIn = nullptr;
    bool refuses = false;
};

using Widths = QList<int>;

/// A splitter with wrapped panes in a window 600 wide.
template <class Splitter = CSplitterWnd_X>
struct Stage
{
    explicit Stage(int count, bool shown = true)
    {
        top.resize(600, 200);
        frame.SubclassWindow(&top);
        splitter.CreateStatic(&frame, 1, count);
        for (int i = 0; i < count; ++i)
            splitter.CreateView(0, i, &views[i]);
        splitter.MoveWindow(0, 0, 600, 200);
        if (shown)
            show();
    }

    void show()
    {
        splitter.ShowWindow(SW_SHOW);
        top.show();
        QVERIFY(QTest::qWaitForWindowExposed(&top));
    }

    QSplitter* imp() const { return splitter.template Imp<QSplitter>(); }

    /// As they are once all has been laid out.
    Widths widths() const
    {
        QCoreApplication::sendPostedEvents();
        Widths result;
        for (int i = 0; i < imp()->count(); ++i)
            result += imp()->widget(i)->width();
        return result;
    }

    QWidget top;
    CWnd_X frame;
    Splitter splitter;
    View views[4];
};
