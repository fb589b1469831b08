#include "deepcalls.h"

#include <xeresource.h>

Q_DECL_EXPORT QString moduleBehind(int frames) { return frames > 1 ? moduleBehind(frames - 1) : GetPlxResourceName(); }
