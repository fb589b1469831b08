#pragma once

#include "chartlayout.h"

#include <xeafxdc.h>

/// Paints the bars of the kinds, the selected one inverted; -1 for none.
void paintChart(CDC_X& dc, const ChartLayout& chart, const std::vector<KindStock>& stock, int selected);
