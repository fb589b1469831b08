#include "xerangectrl.h"

#include <QCoreApplication>

#include <limits>
#include <utility>

IMPLEMENT_DYNCREATE_X(CProgressCtrl_X, CWnd_X)

namespace {

// A bar without a value says that it has one less than the least.
int valueOf(const QProgressBar& bar) { return qMax(bar.value(), bar.minimum()); }

bool isInt(long long number)
{
    using Limits = std::numeric_limits<int>;
    return number >= Limits::min() && number <= Limits::max();
}

} // namespace

bool CProgressCtrl_X::AttachDefault(QWidget* parent)
{
    auto* const bar = new QProgressBar(parent);
    bar->setOrientation(GetStyle() & PBS_VERTICAL ? Qt::Vertical : Qt::Horizontal);
    return Attach(bar, parent, false);
}

bool CProgressCtrl_X::OnAttach()
{
    if (!CWnd_X::OnAttach())
        return false;
    ModifyStyle(PBS_VERTICAL, Imp<QProgressBar>()->orientation() == Qt::Vertical ? PBS_VERTICAL : 0);
    return true;
}

void CProgressCtrl_X::SetRange(short minimum, short maximum)
{
    if (auto* const bar = Imp<QProgressBar>())
        bar->setRange(minimum, maximum);
}

int CProgressCtrl_X::SetPos(int position)
{
    auto* const bar = Imp<QProgressBar>();
    if (!bar)
        return 0;
    const int before = valueOf(*bar);
    bar->setValue(position);
    QCoreApplication::processEvents(); // may delete this
    return before;
}

int CProgressCtrl_X::OffsetPos(int distance)
{
    auto* const bar = Imp<QProgressBar>();
    if (!bar)
        return 0;
    const int before = valueOf(*bar);
    const long long position = static_cast<long long>(before) + distance;
    if (isInt(position))
        bar->setValue(static_cast<int>(position));
    return before;
}

int CProgressCtrl_X::SetStep(int newStep) { return std::exchange(step, newStep); }
