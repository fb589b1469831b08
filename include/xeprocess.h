/// @file xeprocess.h
/// Facts about the process, its modules, the machine and the host: all headers of these subjects.
#pragma once

#include "xecolor.h"
#include "xedirectories.h"
#include "xeformatmessage.h"
#include "xehost.h"
#include "xememory.h"
#include "xemodule.h"
#include "xesysinfo.h"
