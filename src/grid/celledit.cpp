#include "XeGridCell.h"

CGridCell_X::~CGridCell_X() = default;

int CGridCell_X::Edit(int, int, CRect, CPoint, unsigned int, unsigned int) { return 0; }
void CGridCell_X::EndEdit() {}
void CGridCell_X::OnEndEdit() {}
