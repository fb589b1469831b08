class tst_Links : public QObject
{
    Q_OBJECT
};

XE_TEST(tst_Links)
#include "tst_links.moc"
