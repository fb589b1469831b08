#pragma once

#include <xeafxdc.h>

class MessageLog;

/// A heading with a note on its right, and below it as many of the newest messages as there is room for, the newest at
/// the bottom.
void paintMessages(CDC_X& dc, const CRect& area, const MessageLog& log, const CString_X& note);
