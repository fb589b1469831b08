#include "xerangectrl.h"

IMPLEMENT_DYNCREATE_X(CSliderCtrl_X, CWnd_X)

bool CSliderCtrl_X::AttachDefault(QWidget* parent)
{
    return Attach(new QSlider(GetStyle() & TBS_VERT ? Qt::Vertical : Qt::Horizontal, parent), parent, false);
}

bool CSliderCtrl_X::OnAttach()
{
    if (!CWnd_X::OnAttach())
        return false;
    ModifyStyle(TBS_VERT, Imp<QSlider>()->orientation() == Qt::Vertical ? TBS_VERT : 0);
    return true;
}

void CSliderCtrl_X::GetRange(int& minimum, int& maximum) const
{
    if (const auto* const slider = Imp<QSlider>()) {
        minimum = slider->minimum();
        maximum = slider->maximum();
    }
}

void CSliderCtrl_X::SetRange(int minimum, int maximum, BOOL)
{
    if (auto* const slider = Imp<QSlider>())
        slider->setRange(minimum, maximum);
}

int CSliderCtrl_X::GetLineSize() const
{
    const auto* const slider = Imp<QSlider>();
    return slider ? slider->singleStep() : -1;
}

int CSliderCtrl_X::SetLineSize(int size)
{
    const int before = GetLineSize();
    if (auto* const slider = Imp<QSlider>())
        slider->setSingleStep(size);
    return before;
}

int CSliderCtrl_X::GetPageSize() const
{
    const auto* const slider = Imp<QSlider>();
    return slider ? slider->pageStep() : -1;
}

int CSliderCtrl_X::SetPageSize(int size)
{
    const int before = GetPageSize();
    if (auto* const slider = Imp<QSlider>())
        slider->setPageStep(size);
    return before;
}

int CSliderCtrl_X::GetPos() const
{
    const auto* const slider = Imp<QSlider>();
    return slider ? slider->sliderPosition() : 0;
}

void CSliderCtrl_X::SetPos(int position)
{
    if (auto* const slider = Imp<QSlider>())
        slider->setSliderPosition(position);
}

void CSliderCtrl_X::SetTicFreq(int) {}
