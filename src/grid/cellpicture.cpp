#include "grid/cellpicture.h"

#include "XeGridCtrl.h"

#include <QImage>

const QImage* xe::pictureOf(const CGridCellBase_X& cell, int index)
{
    const CGridCtrl_X* const grid = index < 0 ? nullptr : cell.GetGrid();
    const CImageList_X* const list = grid ? grid->m_pImageList : nullptr;
    if (!list || index >= list->GetImageCount())
        return nullptr;
    _IMAGEINFO info{};
    const auto* const picture = list->GetImageInfo(index, &info) ? static_cast<const QImage*>(info.hbmImage) : nullptr;
    return picture && !picture->isNull() ? picture : nullptr;
}
