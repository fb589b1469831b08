#pragma once

#include <xeafxctrl.h>
#include <xeafxddx.h>
#include <xeafxdtctl.h>

/// DDX_Text for the current row of a QListWidget. Loading adds a text that the list does not have; without a current
/// row saving fails.
void DDX_ListText(CDataExchange_X* exchange, int id, CString_X& value);

/// DDX_Check for a box of three states: BST_UNCHECKED, BST_CHECKED or BST_INDETERMINATE.
void DDX_CheckState(CDataExchange_X* exchange, CButton_X& box, int& state);

/// A day as yyyy-MM-dd. Loading shows today for an empty text.
void DDX_Day(CDataExchange_X* exchange, CDateTimeCtrl_X& field, CString_X& day);
