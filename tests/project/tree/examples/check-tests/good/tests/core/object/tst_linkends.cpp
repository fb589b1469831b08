namespace {

struct Row
{
};

} // namespace

namespace second {
struct Form
{
};
} // namespace second

class tst_LinkEnds : public QObject
{
    Q_OBJECT
};

XE_TEST(tst_LinkEnds)
#include "tst_linkends.moc"
