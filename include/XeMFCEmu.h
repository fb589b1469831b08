/// @file XeMFCEmu.h
/// Every public header of the library.
#pragma once

#include "xeafx.h"
#include "xeafxddx.h"
#include "xeafxdlg.h"
#include "xeafxdump.h"
#include "xeafxmenu.h"
#include "xeafxmsg.h"
#include "xeafxstr.h"
#include "xeafxwin.h"
#include "xeatltypes.h"
#include "xeconvert.h"
#include "xedef.h"
#include "xeformat.h"
#include "xehook.h"
#include "xeprocess.h"
#include "xeresource.h"
#include "xestrapi.h"
#include "xewinuser.h"
