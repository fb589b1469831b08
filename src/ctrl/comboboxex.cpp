#include "xeafxctrl.h"

#include <QComboBox>
#include <QSignalBlocker>

IMPLEMENT_DYNCREATE_X(CComboBoxEx_X, CComboBox_X)

namespace {

const QImage* imageOf(const CComboBoxEx_X& box, int index)
{
    if (index < 0 || index >= box.imageList.GetImageCount())
        return nullptr;
    if (const CBitmap_X* const own = box.itemImages.value(index))
        return static_cast<const QImage*>(own->GetSafeHandle());
    _IMAGEINFO info{};
    return box.imageList.GetImageInfo(index, &info) ? static_cast<const QImage*>(info.hbmImage) : nullptr;
}

} // namespace

int CComboBoxEx_X::InsertItem(const tagCOMBOBOXEXITEMW_X* item)
{
    auto* const box = Imp<QComboBox>();
    if (!box || !item)
        return CB_ERR;
    const auto place = static_cast<int>(qBound<INT_PTR>(-1, item->iItem, box->count()));
    const int index = InsertString(place, item->pszText);
    if (const QImage* const image = imageOf(*this, item->iImage)) {
        const QSignalBlocker blocker(box);
        box->setItemIcon(index, QIcon(QPixmap::fromImage(*image)));
    }
    return index;
}

CImageList_X CComboBoxEx_X::SetImageList(const CImageList_X& list)
{
    CImageList_X before(imageList);
    imageList = list;
    return before;
}
