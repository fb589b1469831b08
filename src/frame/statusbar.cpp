// Status bars.

#include "geometry/rectangle.h"
#include "xeafxbar.h"

#include <QLabel>

#include <algorithm>
#include <utility>

IMPLEMENT_DYNCREATE_X(CStatusBar_X, CControlBar_X)

namespace {

constexpr int gap = 7; // between two panes

template <class Map>
int countBelow(const Map& map, unsigned index)
{
    const auto isThere = [](const auto& entry) { return entry.second != nullptr; };
    return static_cast<int>(std::count_if(map.begin(), map.lower_bound(index), isThere));
}

} // namespace

bool CStatusBar_X::AttachDefault(QWidget* parent) { return Attach(new QStatusBar(parent), parent, false); }

void CStatusBar_X::OnDetach()
{
    CControlBar_X::OnDetach();
    m_mapPanes.clear();
    m_blanks.clear();
}

int CStatusBar_X::Create(QWidget* parent, DWORD style)
{
    const QPointer<CStatusBar_X> living(this);
    if (!CWnd_X::Create(style, parent))
        return 0;
    if (auto* const bar = living ? Imp<QStatusBar>() : nullptr)
        bar->setSizeGripEnabled(false);
    return 1;
}

BOOL CStatusBar_X::SetIndicators(const UINT*, int) { return TRUE; }

void CStatusBar_X::SetPaneStyle(int, UINT) {}

BOOL CStatusBar_X::SetPaneText(int index, const wchar_t* text, int)
{
    auto* const bar = Imp<QStatusBar>();
    if (!bar || index < 0)
        return FALSE;
    const auto key = static_cast<unsigned>(index);
    const auto found = m_mapPanes.find(key);
    if (found == m_mapPanes.end()) {
        auto* const label = new QLabel(XeQString(text), bar);
        label->setMinimumWidth(label->sizeHint().width()); // or a bar that is too narrow squeezes it
        label->adjustSize();
        addPane(key, label);
    } else if (QWidget* const pane = found->second) {
        const int width = grownWidth(*pane);
        m_mapPanes.erase(found);
        if (!takeOff(pane))
            return TRUE;
        auto* const label = new QLabel(XeQString(text), bar);
        label->setFixedWidth(width);
        enterPane(key, label);
        bar->insertWidget(placeOf(key), label);
    }
    return TRUE;
}

void CStatusBar_X::SetPaneInfo(int index, UINT, UINT, int width)
{
    auto* const bar = Imp<QStatusBar>();
    if (!bar || index < 0)
        return;
    const auto key = static_cast<unsigned>(index);
    const auto found = m_mapPanes.find(key);
    const bool isNew = found == m_mapPanes.end();
    if (!isNew) {
        QWidget* const pane = found->second;
        if (!pane)
            return;
        m_mapPanes.erase(found);
        if (!takeOff(pane))
            return;
    }
    if (!takeOff(std::exchange(m_blanks[key], nullptr)))
        return;
    auto* const label = new QLabel(bar);
    label->setFixedWidth(std::clamp(width, 0, QWIDGETSIZE_MAX));
    if (isNew) {
        addPane(key, label);
    } else {
        m_blanks[key] = label;
        bar->insertWidget(placeOf(key), label);
    }
}

// Takes a widget off the bar, and deletes it later: an event of its own may be what replaces it. False if a handler has
// taken the bar away meanwhile.
bool CStatusBar_X::takeOff(QWidget* widget)
{
    if (!widget)
        return true;
    const QPointer<CStatusBar_X> living(this);
    const QPointer<QStatusBar> bar(Imp<QStatusBar>());
    const QPointer<QWidget> removed(widget);
    bar->removeWidget(widget); // which hides it
    if (removed)
        removed->deleteLater();
    return living && bar && bar == Imp<QStatusBar>();
}

// Behind all others, those of the host too, unless a pane of a higher index is there.
void CStatusBar_X::addPane(unsigned index, QLabel* label)
{
    auto* const bar = Imp<QStatusBar>();
    const bool isLast = m_mapPanes.upper_bound(index) == m_mapPanes.end();
    enterPane(index, label);
    const QPointer<CStatusBar_X> living(this); // what comes up may call handlers
    if (isLast)
        bar->addWidget(label);
    else
        bar->insertWidget(placeOf(index), label);
    if (living)
        UpdateStatusBarWidth(0);
}

void CStatusBar_X::enterPane(unsigned index, QLabel* label)
{
    m_mapPanes[index] = label;
    connect(label, &QObject::destroyed, &m_watch, [this](const QObject* pane) { forgetPane(pane); });
}

// The pane has been deleted by somebody else.
void CStatusBar_X::forgetPane(const QObject* pane)
{
    const auto isPane = [pane](const auto& entry) { return entry.second == pane; };
    const auto found = std::find_if(m_mapPanes.begin(), m_mapPanes.end(), isPane);
    if (found != m_mapPanes.end())
        m_mapPanes.erase(found);
}

int CStatusBar_X::placeOf(unsigned index) const { return countBelow(m_mapPanes, index) + countBelow(m_blanks, index); }

int CStatusBar_X::widthOfPanes() const
{
    int width = 0;
    for (const auto& [index, pane] : m_mapPanes) {
        if (pane)
            width += pane->width() + gap;
    }
    return width;
}

// A text that changes every second would widen the window for ever.
int CStatusBar_X::grownWidth(const QWidget& pane) const
{
    const QWidget* const parent = GetSafeHwnd()->parentWidget();
    const bool hasRoom = !parent || widthOfPanes() < parent->width();
    return std::min(pane.width() + hasRoom, QWIDGETSIZE_MAX);
}

int CStatusBar_X::CommandToIndex(QWidget* widget) const
{
    for (const auto& [index, pane] : m_mapPanes) {
        if (pane == widget && pane)
            return static_cast<int>(index);
    }
    return -1;
}

UINT_PTR CStatusBar_X::GetItemID(int index) const
{
    const auto found = index < 0 ? m_mapPanes.end() : m_mapPanes.find(static_cast<unsigned>(index));
    return found == m_mapPanes.end() ? 0 : reinterpret_cast<UINT_PTR>(found->second);
}

void CStatusBar_X::GetItemRect(int index, tagRECT* rect) const
{
    const auto* const pane = reinterpret_cast<const QWidget*>(GetItemID(index));
    if (pane && rect)
        *rect = xe::toCorners(pane->rect());
}

QList<QWidget*> CStatusBar_X::GetListQWidgets() const
{
    QList<QWidget*> panes;
    for (const auto& [index, pane] : m_mapPanes) {
        if (pane)
            panes += pane;
    }
    return panes;
}

void CStatusBar_X::setGeometry(const QRect& geometry)
{
    if (auto* const bar = Imp<QStatusBar>())
        bar->setGeometry(geometry);
}

void CStatusBar_X::UpdateStatusBarWidth(UINT)
{
    auto* const bar = Imp<QStatusBar>();
    const int width = widthOfPanes();
    if (!bar || width < gap + 1)
        return;
    QRect geometry = bar->geometry();
    geometry.setWidth(width);
    bar->setGeometry(geometry);
}
