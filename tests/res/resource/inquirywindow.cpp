#include "inquirywindow.h"

#include "inquirywindow.moc"
