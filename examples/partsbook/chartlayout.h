#pragma once

#include "kindstock.h"

#include <xeatltypes.h>

/// Where the bar of a kind stands.
struct ChartBar
{
    CRect label;
    CRect inUse;
    CRect unused; ///< follows the part in use

    CRect whole() const { return inUse | unused; }
};

/// Where all that a chart consists of stands, in a pane of a size.
///
/// The bars lie, each below its label. Their lengths are shares of what the kind needs, so that all of them meet the
/// same line where more is to be ordered.
struct ChartLayout
{
    CRect pane;
    CRect card; ///< with round corners, in the pane
    CRect heading;
    CRect legend;
    int reorder = 0; ///< where the reorder line stands
    std::vector<ChartBar> bars;
};

ChartLayout layOutChart(const std::vector<KindStock>& stock, CSize size);
