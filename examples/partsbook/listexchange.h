#pragma once

#include <xeafxddx.h>

/// DDX_Text for the current row of a QListWidget. Loading adds a text that the list does not have; without a current
/// row saving fails.
void DDX_ListText(CDataExchange_X* exchange, int id, CString_X& value);
