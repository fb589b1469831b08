#include "hookstage.h"

#include "hookstage.moc"
