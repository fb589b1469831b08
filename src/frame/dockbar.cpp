// Dock bars.

#include "frame/docking.h"
#include "xeafxbar.h"

#include <algorithm>

IMPLEMENT_DYNAMIC_X(CDockBar_X, CControlBar_X)

namespace {

constexpr ULONG_PTR firstBar = 0x10000; // below it an entry is a placeholder
constexpr int overlap = 2;              // of two rows, in pixels

CControlBar_X* barOf(void* entry)
{
    return reinterpret_cast<ULONG_PTR>(entry) < firstBar ? nullptr : static_cast<CControlBar_X*>(entry);
}

// Where the bar is in the coordinates of the dock; false for one that is nowhere.
bool placeIn(const CWnd_X& dock, const CControlBar_X* bar, CRect& place)
{
    if (!bar || !bar->GetWindowRect(&place))
        return false;
    dock.ScreenToClient(&place);
    return true;
}

int enter(CPtrArray_X& bars, int index, CControlBar_X* bar, bool inRowOfItsOwn)
{
    void* const endOfRow = nullptr;
    if (inRowOfItsOwn)
        bars.InsertAt(index, endOfRow);
    bars.InsertAt(index, bar);
    return index;
}

} // namespace

CDockBar_X::CDockBar_X(int floating) : m_bFloating(floating) {}

bool CDockBar_X::AttachDefault(QWidget* parent) { return Attach(new xe::DockWidget(parent), parent, false); }

int CDockBar_X::Create(QWidget* parent, unsigned int style, unsigned int)
{
    const QPointer<CDockBar_X> living(this);
    m_rectLayout.SetRectEmpty();
    if (!CWnd_X::Create(style, parent))
        return 0;
    if (living)
        xe::placeByStyle(Imp<QDockWidget>(), style, m_bFloating != 0);
    if (living)
        m_dwStyle = style & CBRS_ALL;
    return 1;
}

int CDockBar_X::GetDockedVisibleCount() { return GetDockedCount(); }

CControlBar_X* CDockBar_X::GetDockedControlBar(int index) const
{
    return index >= 0 && index < m_arrBars.GetSize() ? barOf(m_arrBars[index]) : nullptr;
}

int CDockBar_X::FindBar(CControlBar_X* bar, int ignore) const
{
    for (int i = 0; i < m_arrBars.GetSize(); ++i) {
        if (i != ignore && m_arrBars[i] == bar)
            return i;
    }
    return -1;
}

int CDockBar_X::GetDockedCount() const
{
    int count = 0;
    for (int i = 0; i < m_arrBars.GetSize(); ++i)
        count += barOf(m_arrBars[i]) != nullptr;
    return count;
}

int CDockBar_X::ShowAll(int) { return static_cast<int>(m_arrBars.GetSize()); }

int CDockBar_X::Insert(CControlBar_X* bar, CRect rect, CPoint point)
{
    if (!bar)
        return -1;
    const bool horizontal = m_dwStyle & CBRS_ORIENT_HORZ;
    int after = 0; // the entry behind which the bar goes
    int thickness = 0;
    int end = 0; // of the rows so far
    for (int i = 0; i < m_arrBars.GetSize(); ++i) {
        if (!m_arrBars[i]) {
            end += thickness - overlap;
            if (end > (horizontal ? point.y : point.x))
                return enter(m_arrBars, after + 1, bar, i == 0);
            thickness = 0;
            after = i;
        }
        CRect place;
        if (!placeIn(*this, barOf(m_arrBars[i]), place))
            continue;
        thickness = std::max(thickness, horizontal ? place.Height() : place.Width() - 1);
        if (horizontal ? place.left < rect.left : place.top < rect.top)
            after = i;
    }
    return enter(m_arrBars, after + 1, bar, true);
}
