#include "xewindow.h"
