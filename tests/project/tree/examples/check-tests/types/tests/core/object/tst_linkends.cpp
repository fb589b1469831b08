namespace {

enum class Kind { one };

} // namespace

enum class Kind { two };

struct Row
{
};

namespace forms {
class Form
{
};
} // namespace forms

class tst_LinkEnds : public QObject
{
    Q_OBJECT
};

XE_TEST(tst_LinkEnds)
#include "tst_linkends.moc"
