#pragma once

#include "partstree.h"

#include <xeafxframe.h>

/// The tree of kinds and suppliers at the left of the list of parts, and a divider that stays within limits.
class CTreeSplitter : public CSplitterWndEx_X
{
    Q_OBJECT
    DECLARE_DYNAMIC_X(CTreeSplitter)

    CTreeSplitter();

    /// Takes the place of the list of parts in its layout, and the list to the right of the tree.
    bool Surround(QWidget* parts);

    CPartsTree& Tree() { return m_tree; }
    /// How wide the tree is, in pixels.
    int Width() const;
    void SetWidth(int width);

    void OnMouseMove(UINT flags, CPoint point);

    DECLARE_MESSAGE_MAP_X()

private:
    CPartsTree m_tree;
};
