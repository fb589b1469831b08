// Between the numbers of the list control and Qt's.
#pragma once

#include "xelistctrl.h"

#include <QTableWidgetItem>

namespace xe {

/// Where an item keeps what the list control adds to it.
inline constexpr int itemDataRole = Qt::UserRole + 1;
inline constexpr int imageRole = Qt::UserRole + 2;

/// The alignment of an LVCFMT_ number. Any other counts as LVCFMT_LEFT.
inline int toAlignment(LPARAM format)
{
    switch (format) {
    case LVCFMT_RIGHT:
        return Qt::AlignRight;
    case LVCFMT_CENTER:
        return Qt::AlignCenter;
    default:
        return Qt::AlignLeft;
    }
}

inline int toFormat(int alignment)
{
    switch (alignment) {
    case Qt::AlignRight:
        return LVCFMT_RIGHT;
    case Qt::AlignCenter:
        return LVCFMT_CENTER;
    default:
        return LVCFMT_LEFT;
    }
}

/// What a check box is kept as: it has two states here.
inline int checkState(BOOL check) { return check ? Qt::Checked : Qt::Unchecked; }

} // namespace xe
