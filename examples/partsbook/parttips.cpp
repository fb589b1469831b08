#include "parttips.h"

#include "control.h"
#include "text.h"

namespace {

struct Tip
{
    unsigned control;
    unsigned text;
};

constexpr Tip fields[] = {
    {IDC_NUMBER, IDS_TIP_NUMBER},     {IDC_NAME, IDS_TIP_NAME},     {IDC_KIND, IDS_TIP_KIND},
    {IDC_REMARK, IDS_TIP_REMARK},     {IDC_IN_USE, IDS_TIP_IN_USE}, {IDC_PICTURE_FILE, IDS_TIP_PICTURE},
    {IDC_SUPPLIER, IDS_TIP_SUPPLIER}, {IDC_STOCK, IDS_TIP_STOCK},   {IDC_MINIMUM, IDS_TIP_SLIDER},
    {IDC_MINIMUM_SPIN, IDS_TIP_SPIN}, {IDC_PRICE, IDS_TIP_PRICE},   {IDC_DELIVERED, IDS_TIP_DELIVERED},
};

} // namespace

IMPLEMENT_DYNAMIC_X(CPartTips, CToolTipCtrl_X)

void CPartTips::Open(CWnd_X& dialog)
{
    Create(&dialog);
    m_texts.reserve(std::size(fields));
    for (const Tip& tip : fields) {
        m_texts.push_back(loadText(tip.text));
        AddTool(&control<QWidget>(dialog, tip.control), m_texts.back());
    }
    Activate(TRUE);
}
