#include "core/links.h"
#include "linked.h"
#include "resource.h"
#include "stage.h"

namespace {

struct Row
{
};

} // namespace

namespace first {
struct Form
{
};
} // namespace first

class Later;

class tst_Links : public QObject
{
    Q_OBJECT
};

XE_TEST(tst_Links)
#include "tst_links.moc"
