#pragma once

#include <XeMFCEmu.h>

#include <QPointer>
#include <QStringList>
#include <QTest>

#include <functional>

/// Writes down what a grid notifies its window of: "code row,column".
class BtnWindow : public CWnd_X
{
public:
    LRESULT OnNotify(WPARAM, LPARAM record)
    {
        const auto& told = *reinterpret_cast<const XeGridNotification*>(record);
        notes += QStringLiteral("%1 %2,%3").arg(static_cast<int>(told.hdr.code)).arg(told.iRow).arg(told.iColumn);
        if (onNotify)
            onNotify(static_cast<int>(told.hdr.code));
        return 0;
    }
    QStringList take() { return std::exchange(notes, {}); }

    QStringList notes;
    std::function<void(int)> onNotify;

    void OnMessageMap() override
    {
        CWnd_X::OnMessageMap();
        AddMsgMapEntry(WM_NOTIFY, AfxSig_l_w_l, XeHandler<LRESULT(WPARAM, LPARAM)>::of(&BtnWindow::OnNotify));
    }
};

/// A grid of 4 x 4 cells, 100 x 30 each, in a window that writes its notifications down. Row 1, column 1 is a cell of a
/// class with buttons, with shared data.
struct BtnStage
{
    explicit BtnStage(CRuntimeClass_X* type = RUNTIME_CLASS_X(CGridBtnCell_X)) : grid(std::make_unique<CGridCtrl_X>())
    {
        window.resize(500, 300);
        widget = new QWidget(&window);
        widget->setGeometry(0, 0, 450, 250);
        owner.SubclassWindow(&window);
        grid->SubclassWindow(widget);
        grid->SetRowCount(4);
        grid->SetColumnCount(4);
        for (int i = 0; i < 4; ++i) {
            grid->SetRowHeight(i, 30);
            grid->SetColumnWidth(i, 100);
        }
        grid->ResetScrollBars();
        shared.SetGrid(grid.get());
        grid->SetCellType(1, 1, type);
        cell = static_cast<CGridBtnCell_X*>(grid->cellAt(1, 1));
        cell->SetCoords(1, 1);
        cell->SetBtnDataBase(&shared);
    }

    /// Shows the window, which becomes the active one.
    bool comeUp()
    {
        window.show();
        const bool isActive = QTest::qWaitFor([this] {
            window.activateWindow();
            return window.isActiveWindow();
        });
        widget->setFocus();
        return isActive;
    }

    void setUp(int index, UINT type, UINT state, CTL_ALIGN align = CTL_ALIGN_LEFT, int width = 0, int isRadio = FALSE,
               const wchar_t* text = L"")
    {
        QCOMPARE(cell->SetupBtns(index, type, state, align, width, isRadio, text), 1);
    }

    /// Left and right of a rectangle relative to its cell, "left-right".
    static QString span(const CRect& rect, const CRect& cell)
    {
        return QStringLiteral("%1-%2").arg(rect.left - cell.left).arg(rect.right - cell.left);
    }
    /// The controls, and the text behind a bar.
    QString layout(int width, int height) const
    {
        const CRect cellRect(10, 20, 10 + width, 20 + height);
        CRect rects[16];
        if (!cell->CalcDrawCtlRects(rects, 16, cellRect))
            return QStringLiteral("none");
        QStringList spans;
        for (int i = 0; i < cell->GetDrawCtlNbr(); ++i)
            spans += span(rects[i], cellRect);
        const CRect& text = rects[cell->GetDrawCtlNbr()];
        return spans.join(QLatin1Char(' ')) + QStringLiteral(" | ")
               + (text == CRect(0, 0, 0, 0) ? QStringLiteral("none") : span(text, cellRect));
    }

    UINT state(int index = 0) const { return cell->GetDrawCtlState(index); }

    QWidget window;
    QWidget* widget;
    BtnWindow owner;
    CBtnDataBase_X shared;
    std::unique_ptr<CGridCtrl_X> grid;
    QPointer<CGridBtnCell_X> cell;
};

inline constexpr UINT pressed = DFCS_PUSHED;
inline constexpr UINT checked = DFCS_CHECKED;
inline constexpr UINT up = WM_LBUTTONUP;
inline constexpr UINT down = WM_LBUTTONDOWN;
inline constexpr UINT twice = WM_LBUTTONDBLCLK;

inline QString textOf(const wchar_t* text) { return text ? QString(XeQString(text)) : QStringLiteral("null"); }

inline CRect cellRect(const BtnStage& stage)
{
    CRect rect;
    stage.grid->GetCellRect(1, 1, &rect);
    return rect;
}
