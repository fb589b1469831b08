/// @file xestrapi.h
/// Text, character, BSTR, colour and rectangle functions: all headers of these subjects.
#pragma once

#include "xebstr.h"
#include "xechar.h"
#include "xecolor.h"
#include "xerect.h"
#include "xestr.h"
