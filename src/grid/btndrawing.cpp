#include "XeGridBtnCellBase.h"
#include "XeGridCtrl.h"
#include "geometry/rectangle.h"
#include "grid/btnlayout.h"
#include "xeafxdc.h"

#include <QApplication>
#include <QStyle>
#include <QStyleOptionButton>

namespace {

QStyle::ControlElement elementOf(unsigned state)
{
    if (state & DFCS_BUTTONPUSH)
        return QStyle::CE_PushButton;
    return state & DFCS_BUTTONRADIO ? QStyle::CE_RadioButton : QStyle::CE_CheckBox;
}

QStyle::StateFlag lookOf(unsigned state)
{
    if (state & DFCS_BUTTONPUSH)
        return state & DFCS_PUSHED ? QStyle::State_Sunken : QStyle::State_Raised;
    return state & DFCS_CHECKED ? QStyle::State_On : QStyle::State_Off;
}

// Of the type nothing is seen: an arrow looks like a check box.
void paintControl(QPainter& painter, const QWidget* widget, unsigned state, const wchar_t* text, const CRect& rect)
{
    QStyleOptionButton option;
    if (widget)
        option.initFrom(widget);
    option.state &= ~(QStyle::State_HasFocus | QStyle::State_MouseOver);
    option.state.setFlag(QStyle::State_Enabled, !(state & DFCS_INACTIVE));
    if (state & DFCS_INACTIVE)
        option.palette.setCurrentColorGroup(QPalette::Disabled);
    option.state |= lookOf(state);
    option.text = XeQString(text);
    option.rect = xe::toQRect(rect);
    QStyle* const style = widget ? widget->style() : QApplication::style();
    style->drawControl(elementOf(state), &option, &painter, widget);
}

} // namespace

int CGridBtnCellBase_X::Draw(CDC_X* dc, int row, int col, CRect rect, QWidget* widget, int erase)
{
    if (!dc || !DrawBtnCell(dc, row, col, &rect, erase))
        return 0;
    return rect.Width() > 0 ? CGridCellBase_X::Draw(dc, row, col, rect, widget, erase) : 1;
}

int CGridBtnCellBase_X::PrintCell(CDC_X*, int, int, CRect) { return 0; }

int CGridBtnCellBase_X::DrawBtnCell(CDC_X* dc, int, int, CRect* rect, int)
{
    const CGridCtrl_X* const grid = GetGrid();
    if (!grid || !dc || !dc->isActive() || !rect || rect->Width() <= 0 || rect->Height() <= 0)
        return 0;
    const int controls = GetDrawCtlNbr();
    if (controls <= 0)
        return 1;
    dc->save();
    if (m_nState & (Selected | DropHilited)) {
        dc->setPen(Qt::black);
        dc->setBrush(Qt::NoBrush);
        dc->Rectangle(rect);
    }
    dc->SetBkMode(TRANSPARENT);
    const int margin = static_cast<int>(GetMargin());
    rect->left += margin;
    rect->right -= margin;
    if (const QFont* const font = GetFont())
        dc->SelectObject(*font);
    xe::ControlRects rects;
    if (CalcDrawCtlRects(rects.data(), xe::mostControls, *rect)) {
        for (int i = 0; i < controls; ++i)
            paintControl(*dc, grid->GetSafeHwnd(), GetDrawCtlState(i), GetDrawCtlBtnText(i),
                         rects[static_cast<std::size_t>(i)]);
        *rect = rects[static_cast<std::size_t>(controls)];
    }
    dc->restore();
    return 1;
}
