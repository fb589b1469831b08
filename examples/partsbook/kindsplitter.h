#pragma once

#include "kindlist.h"

#include <xeafxframe.h>

/// The kinds of parts at the left of the list of parts, and a divider that stays within limits.
class CKindSplitter : public CSplitterWndEx_X
{
    Q_OBJECT
    DECLARE_DYNAMIC_X(CKindSplitter)

    CKindSplitter();

    /// Takes the place of the list of parts in its layout, and the list to the right of the kinds.
    bool Surround(QWidget* parts);

    CKindList& Kinds() { return m_kinds; }
    /// How wide the kinds are, in pixels.
    int Width() const;
    void SetWidth(int width);

    void OnMouseMove(UINT flags, CPoint point);

    DECLARE_MESSAGE_MAP_X()

private:
    CKindList m_kinds;
};
