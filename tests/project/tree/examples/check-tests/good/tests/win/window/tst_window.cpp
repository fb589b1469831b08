struct Linked
{
};
class tst_Window : public QObject
{
    Q_OBJECT
};

XE_TEST(tst_Window)
#include "tst_window.moc"
