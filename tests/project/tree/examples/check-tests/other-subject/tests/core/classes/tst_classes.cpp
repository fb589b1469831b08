#include "object/linked.h"
#include "../object/linked.h"
#include "tests/core/object/linked.h"
class tst_Classes : public QObject
{
    Q_OBJECT
};

XE_TEST(tst_Classes)
#include "tst_classes.moc"
